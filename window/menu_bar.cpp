#include "window/menu_bar.h"

namespace celestrix {

namespace {

Ref<MenuBar1> shared;

template <class Item = MenuItem>
Ref<MenuItem> Add(MenuItem& menu, const String& name, const String& text, const String& shortcut = {}) {
  Ref<Item> item = New<Item>();
  item->Name = name;
  item->Text = text;
  item->KeyboardShortcut = shortcut;
  item->AutoEnable = true;
  menu.Append(item);
  return item;
}

}  // namespace

MenuBar1::MenuBar1() {
  Untitled0();
  Untitled1();
}

void MenuBar1::Untitled0() {
  const Ref<MenuItem> file = Add(*this, "FileMenu"_s, "&File"_s);
  Add<QuitMenuItem>(*file, "FileQuit"_s, "&Quit"_s, "Cmd+Q"_s);
}

void MenuBar1::Untitled1() {
  const Ref<MenuItem> edit = Add(*this, "EditMenu"_s, "&Edit"_s);
  Add(*edit, "EditUndo"_s, "&Undo"_s, "Cmd+Z"_s);
  Add(*edit, {}, "-"_s);
  Add(*edit, "EditCut"_s, "Cu&t"_s, "Cmd+X"_s);
  Add(*edit, "EditCopy"_s, "&Copy"_s, "Cmd+C"_s);
  Add(*edit, "EditPaste"_s, "&Paste"_s, "Cmd+V"_s);
  Add(*edit, "EditClear"_s, "&Delete"_s);  // the framework's name for the command, and our text for it
  Add(*edit, {}, "-"_s);
  Add(*edit, "EditSelectAll"_s, "Select &All"_s, "Cmd+A"_s);
}

Ref<MenuBar1> MenuBar1::Shared() {
  if (!shared) shared = New<MenuBar1>();
  return shared;
}

void MenuBar1::Release() { shared = nullptr; }

}  // namespace celestrix
