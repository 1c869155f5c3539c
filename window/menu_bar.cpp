#include "window/menu_bar.h"

namespace celestrix {

namespace {

Ref<MenuBar1> shared;

template <class Item = MenuItem>
void Add(MenuItem& menu, const String& name, const String& text, const String& shortcut = {}) {
  const Ref<Item> item = New<Item>();
  item->Name = name;
  item->Text = text;
  item->KeyboardShortcut = shortcut;
  item->AutoEnable = true;
  menu.Append(item);
}

}  // namespace

MenuBar1::MenuBar1() {
  Untitled0();
  Untitled1();
}

void MenuBar1::Untitled0() {
  Add(*this, "FileMenu"_s, "&File"_s);
  Add<QuitMenuItem>(*Child("FileMenu"_s), "FileQuit"_s, "&Quit"_s, "Cmd+Q"_s);
}

void MenuBar1::Untitled1() {
  Add(*this, "EditMenu"_s, "&Edit"_s);
  Add(*Child("EditMenu"_s), "EditUndo"_s, "&Undo"_s, "Cmd+Z"_s);
  Add(*Child("EditMenu"_s), {}, "-"_s);
  Add(*Child("EditMenu"_s), "EditCut"_s, "Cu&t"_s, "Cmd+X"_s);
  Add(*Child("EditMenu"_s), "EditCopy"_s, "&Copy"_s, "Cmd+C"_s);
  Add(*Child("EditMenu"_s), "EditPaste"_s, "&Paste"_s, "Cmd+V"_s);
  Add(*Child("EditMenu"_s), "EditClear"_s, "&Delete"_s);  // the framework's name for the command, and our text for it
  Add(*Child("EditMenu"_s), {}, "-"_s);
  Add(*Child("EditMenu"_s), "EditSelectAll"_s, "Select &All"_s, "Cmd+A"_s);
}

Ref<MenuBar1> MenuBar1::Shared() {
  if (!shared) shared = New<MenuBar1>();
  return shared;
}

void MenuBar1::Release() { shared = nullptr; }

}  // namespace celestrix
