// The standard edit commands, on the text field that has the focus.
#pragma once

#include <QAction>
#include <QObject>
#include <QPointer>

#include "services/base/string.h"
#include "services/ui/qt/text_field.h"

namespace celestrix {

/// Whether an item of that name is a standard edit command.
bool IsEditCommand(const String& itemName);

/// Makes actions of a menu into edit commands and keeps each enabled exactly while it applies. It belongs to the
/// menu bar given as its parent.
class EditCommands final : public QObject {
 public:
  explicit EditCommands(QObject* parent);

  void Add(QAction* action, const String& itemName);

 private:
  struct Command {
    QAction* action;
    bool (*applies)(const TextField& field);
  };

  void FollowFocus(QWidget* now);
  void Update();

  std::vector<Command> commands_;
  QPointer<TextField> field_;  // the field that has the focus; opening a menu does not take it away
};

}  // namespace celestrix
