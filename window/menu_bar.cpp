#include "window/menu_bar.h"

namespace celestrix {

namespace {

Ref<MenuBar1> shared;

struct Row {
  String Name;
  String Text;
  String KeyboardShortcut;
};

template <class Item>
Ref<MenuItem> NewItem(const Row& row) {
  Ref<Item> item = New<Item>();
  item->Name = row.Name;
  item->Text = row.Text;
  item->KeyboardShortcut = row.KeyboardShortcut;
  return item;
}

}  // namespace

MenuBar1::MenuBar1() {
  Untitled0();
  Untitled1();
}

void MenuBar1::Untitled0() {
  Append(NewItem<MenuItem>({"FileMenu"_s, "&File"_s, {}}));
  Child("FileMenu"_s)->Append(NewItem<QuitMenuItem>({"FileQuit"_s, "&Quit"_s, "Cmd+Q"_s}));
}

void MenuBar1::Untitled1() {
  Append(NewItem<MenuItem>({"EditMenu"_s, "&Edit"_s, {}}));
  const Row rows[] = {
      {"EditUndo"_s, "&Undo"_s, "Cmd+Z"_s},
      {{}, "-"_s, {}},
      {"EditCut"_s, "Cu&t"_s, "Cmd+X"_s},
      {"EditCopy"_s, "&Copy"_s, "Cmd+C"_s},
      {"EditPaste"_s, "&Paste"_s, "Cmd+V"_s},
      {"EditClear"_s, "&Delete"_s, {}},  // the framework's name for the command, and our text for it
      {{}, "-"_s, {}},
      {"EditSelectAll"_s, "Select &All"_s, "Cmd+A"_s},
  };
  for (const Row& row : rows) Child("EditMenu"_s)->Append(NewItem<MenuItem>(row));
}

Ref<MenuBar1> MenuBar1::Shared() {
  if (!shared) shared = New<MenuBar1>();
  return shared;
}

void MenuBar1::Release() { shared = nullptr; }

}  // namespace celestrix
