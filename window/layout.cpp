// The layout of the window: a table of its controls, in the order in which they are made and Tab visits them.
#include "window/menu_bar.h"
#include "window/window1.h"

namespace celestrix {

namespace {

// clang-format off
constexpr WindowProperties kWindow = {
  .Title = "Celestrix Satellite Encoder",
  .Width = 506, .Height = 426, .MinWidth = 64, .MinHeight = 64, .MaxWidth = 32000, .MaxHeight = 32000};
// clang-format on

constexpr char kInstructions[] =
    "Drag and drop a text file containing satellite elements onto the field below, or use the Browse... button, or "
    "copy and paste the text file contents into the field. Then click the Save... button to create the Celestrix file.";

struct ControlRow {
  Ref<RectControl> control;
  ControlProperties properties;
  std::vector<std::pair<const char*, EventHandler>> handlers;
};

/// A handler that does not use the event's arguments.
EventHandler Call(void (Window1::*handler)()) {
  return [handler](const Ref<Window>& self, const Event&) { ((*self.As<Window1>()).*handler)(); };
}

}  // namespace

void Window1::Layout() {
  MenuBar(MenuBar1::Shared());
  _SetProperties(Self(), kWindow);
}

void Window1::CreateControls() { _CreateControls0(); }

void Window1::_CreateControls0() {
  // clang-format off
  const ControlRow rows[] = {
    {New<StaticText>(), {.Name = "StaticText1",
      .Left = 20, .Top = 14, .Width = 466, .Height = 55, .Locks = kLeft | kTop | kRight,
      .Caption = kInstructions, .TextColor = 0x7F7F7F}, {}},
    {New<EditField>(), {.Name = "txt",
      .Left = 20, .Top = 81, .Width = 466, .Height = 275, .Locks = kLeft | kTop | kRight | kBottom,
      .AccessibleName = "Satellite elements", .AccessibleDescription = kInstructions},
      {{"Open", Call(&Window1::txt_Open)},
       {"DropObject", [](const Ref<Window>& self, const Event& event) {
         self.As<Window1>()->txt_DropObject(event.item, event.action); }},
       {"TextChange", Call(&Window1::txt_TextChange)}}},
    {New<PushButton>(), {.Name = "BrowseBtn",
      .Left = 20, .Top = 380, .Width = 80, .Height = 20, .Locks = kLeft | kBottom, .Caption = "Browse..."},
      {{"Action", Call(&Window1::BrowseBtn_Action)}}},
    {New<PushButton>(), {.Name = "SaveBtn",
      .Left = 406, .Top = 380, .Width = 80, .Height = 20, .Locks = kRight | kBottom, .Caption = "Save...",
      .Enabled = false},
      {{"Action", Call(&Window1::SaveBtn_Action)}}},
    {New<GroupBox>(), {.Name = "GroupBox1",
      .Left = 143, .Top = 360, .Width = 221, .Height = 46, .Locks = kLeft | kBottom,
      .Caption = "Celestrix file format"}, {}},
    {New<FileFormat>(0), {.Name = "FileFormat",
      .Left = 153, .Top = 380, .Width = 81, .Height = 20, .InitialParent = "GroupBox1",
      .Caption = "Palm (PDB)"}, {}},
    {New<FileFormat>(1), {.Name = "FileFormat",
      .Left = 246, .Top = 380, .Width = 110, .Height = 20, .InitialParent = "GroupBox1",
      .Caption = "Pocket PC (PPC)"}, {}},
  };
  // clang-format on
  for (const ControlRow& row : rows) {
    AddControl(String(std::string_view(row.properties.Name)), row.control);
    _SetProperties(row.control, row.properties);
    for (const auto& [event, handler] : row.handlers) _InstallInstanceEventHandler(row.control, event, handler);
  }
}

}  // namespace celestrix
