#include "window/menu_bar.h"

namespace celestrix {

namespace {

Ref<MenuBar1> shared;

template <class Item>
Ref<MenuItem> NewItem(const String& name, const String& text, const String& shortcut) {
  Ref<Item> item = New<Item>();
  item->Name = name;
  item->Text = text;
  item->KeyboardShortcut = shortcut;
  item->AutoEnable = true;
  return item;
}

}  // namespace

MenuBar1::MenuBar1() {
  Untitled0();
  Untitled1();
}

void MenuBar1::Untitled0() {
  Append(NewItem<MenuItem>("FileMenu"_s, "&File"_s, {}));
  Child("FileMenu"_s)->Append(NewItem<QuitMenuItem>("FileQuit"_s, "&Quit"_s, "Cmd+Q"_s));
}

void MenuBar1::Untitled1() {
  Append(NewItem<MenuItem>("EditMenu"_s, "&Edit"_s, {}));
  const auto append = [this](const String& name, const String& text, const String& shortcut) {
    Child("EditMenu"_s)->Append(NewItem<MenuItem>(name, text, shortcut));
  };
  append("EditUndo"_s, "&Undo"_s, "Cmd+Z"_s);
  append({}, "-"_s, {});
  append("EditCut"_s, "Cu&t"_s, "Cmd+X"_s);
  append("EditCopy"_s, "&Copy"_s, "Cmd+C"_s);
  append("EditPaste"_s, "&Paste"_s, "Cmd+V"_s);
  append("EditClear"_s, "&Delete"_s, {});  // the framework's name for the command, and our text for it
  append({}, "-"_s, {});
  append("EditSelectAll"_s, "Select &All"_s, "Cmd+A"_s);
}

Ref<MenuBar1> MenuBar1::Shared() {
  if (!shared) shared = New<MenuBar1>();
  return shared;
}

void MenuBar1::Release() { shared = nullptr; }

}  // namespace celestrix
