// Menus: a tree of items under a menu bar. What an item does comes from its class or its name:
//
//   QuitMenuItem     asks the application to quit
//   "EditUndo"       these act on the text field that has the focus:
//   "EditCut"          undo the last edit, cut, copy, paste, delete the selection, select all
//   "EditCopy"
//   "EditPaste"
//   "EditClear"
//   "EditSelectAll"
//   any other        a menu's title, or, with the text "-", a separator
#pragma once

#include <vector>

#include "services/base/string.h"

namespace celestrix {

class MenuItem {
 public:
  virtual ~MenuItem() = default;

  String Name;
  String Text;              // "&" stands before the access letter
  String KeyboardShortcut;  // "Cmd+" and a letter, where "Cmd" is the platform's command key; or empty
  /// The item is enabled if its command applies when its menu opens. If false, it stays disabled. (A menu is always
  /// enabled.)
  bool AutoEnable = false;

  void Append(const Ref<MenuItem>& item) { items_.push_back(item); }
  const std::vector<Ref<MenuItem>>& Items() const { return items_; }
  /// The item of that name directly below this one; null when there is none.
  Ref<MenuItem> Child(const String& name) const;
  /// The item of that name anywhere below this one; null when there is none.
  Ref<MenuItem> Descendant(const String& name) const;

 private:
  std::vector<Ref<MenuItem>> items_;
};

class QuitMenuItem : public MenuItem {};

/// The bar is the root of the tree.
class MenuBar : public MenuItem {};

}  // namespace celestrix
