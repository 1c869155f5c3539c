// Window1: the program's one window.
//
//   window1.cpp           the window itself, and SaveBtn_Action
//   layout.cpp            its controls, their positions and their event handlers
//   text_acquisition.cpp  how text gets into the field: txt_Open, txt_DropObject, txt_TextChange, BrowseBtn_Action
//   preferences.cpp       the remembered format choice: Event_Open, Event_Close
#pragma once

#include "services/ui/window.h"

namespace celestrix {

class Window1 : public Window {
 public:
  /// The open window; the first call makes and opens it.
  static Ref<Window1> Shared();

  /// A member of the set of radio buttons that chooses the format: 0 is "Palm (PDB)", 1 is "Pocket PC (PPC)".
  class FileFormat : public RadioButton {
   public:
    explicit FileFormat(std::int32_t index) { Index(index); }
  };

  void txt_Open();
  void txt_DropObject(const Ref<DragItem>& item, std::int32_t action);
  void txt_TextChange();
  void BrowseBtn_Action();
  void SaveBtn_Action();

  /// The menu items by their names, wherever in the window's menu bar they are.
  Ref<MenuItem> FileMenu() { return MenuBar()->Descendant("FileMenu"_s); }
  Ref<QuitMenuItem> FileQuit() { return MenuBar()->Descendant("FileQuit"_s).As<QuitMenuItem>(); }
  Ref<MenuItem> EditMenu() { return MenuBar()->Descendant("EditMenu"_s); }
  Ref<MenuItem> EditUndo() { return MenuBar()->Descendant("EditUndo"_s); }
  Ref<MenuItem> EditCut() { return MenuBar()->Descendant("EditCut"_s); }
  Ref<MenuItem> EditCopy() { return MenuBar()->Descendant("EditCopy"_s); }
  Ref<MenuItem> EditPaste() { return MenuBar()->Descendant("EditPaste"_s); }
  Ref<MenuItem> EditClear() { return MenuBar()->Descendant("EditClear"_s); }
  Ref<MenuItem> EditSelectAll() { return MenuBar()->Descendant("EditSelectAll"_s); }

 protected:
  void Layout() override;
  void CreateControls() override;
  void AddMenuHandlers(const Ref<Window>& window) override;
  void Event_Open() override;
  void Event_Close() override;

 private:
  void _CreateControls0();
  void LoadFile(const Ref<FolderItem>& file);

  Ref<Window1> Self();
  /// The control of that name, and that number in its set, as a T.
  template <class T>
  Ref<T> ControlNamed(const String& name, std::int32_t index = kNoIndex) {
    return RuntimeWindowControlByNameIndex(Self(), name, index).template As<T>();
  }
};

}  // namespace celestrix
