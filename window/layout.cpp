// The layout of the window: a table of its controls, in the order in which they are made, which is also the
// order in which Tab visits them.
#include <functional>
#include <vector>

#include "core/save_command.h"
#include "services/ui/application.h"
#include "window/menu_bar.h"
#include "window/window1.h"

namespace celestrix {

namespace {

constexpr WindowProperties kWindow = {.Title = "Celestrix Satellite Encoder",
                                      .Width = 506,
                                      .Height = 426,
                                      .MinWidth = 64,
                                      .MinHeight = 64,
                                      .MaxWidth = 32000,
                                      .MaxHeight = 32000};

constexpr Color kGrey = {0x7F, 0x7F, 0x7F};

constexpr char kInstructions[] =
    "Drag and drop a text file containing satellite elements onto the field below, or use the Browse... button, or "
    "copy and paste the text file contents into the field. Then click the Save... button to create the Celestrix file.";

struct HandlerRow {
  const char* event;
  std::function<void(Window1&, const Event&)> handler;
};

struct ControlRow {
  Ref<RectControl> control;
  ControlProperties properties;
  std::vector<HandlerRow> handlers;
};

void Install(const Ref<RectControl>& control, const HandlerRow& row) {
  _InstallInstanceEventHandler(control, row.event, [handler = row.handler](const Ref<Control>& me, const Event& event) {
    const Ref<Window1> self = RuntimeSwapSelfAndMe(me).As<Window1>();
    handler(*self, event);
  });
}

}  // namespace

Ref<Window1> Window1::Shared() {
  const String className = "Window1.Window1"_s;
  if (!ImplicitWindow(className)) {
    AddImplicitWindow(className, New<Window1>());
    ImplicitWindow(className)->Open();
  }
  return ImplicitWindow(className).As<Window1>();
}

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
      .Caption = kInstructions, .TextColor = kGrey}, {}},
    {New<EditField>(), {.Name = "txt",
      .Left = 20, .Top = 81, .Width = 466, .Height = 275, .Locks = kLeft | kTop | kRight | kBottom},
      {{"Open",       [](Window1& self, const Event&) { self.txt_Open(); }},
       {"DropObject", [](Window1& self, const Event& event) { self.txt_DropObject(event.item, event.action); }},
       {"TextChange", [](Window1& self, const Event&) { self.txt_TextChange(); }}}},
    {New<PushButton>(), {.Name = "BrowseBtn",
      .Left = 20, .Top = 380, .Width = 80, .Height = 20, .Locks = kLeft | kBottom, .Caption = "Browse..."},
      {{"Action",     [](Window1& self, const Event&) { self.BrowseBtn_Action(); }}}},
    {New<PushButton>(), {.Name = "SaveBtn",
      .Left = 406, .Top = 380, .Width = 80, .Height = 20, .Locks = kRight | kBottom, .Caption = "Save...",
      .Enabled = false},
      {{"Action",     [](Window1& self, const Event&) { self.SaveBtn_Action(); }}}},
    {New<GroupBox>(), {.Name = "GroupBox1",
      .Left = 143, .Top = 360, .Width = 221, .Height = 46, .Locks = kLeft | kBottom,
      .Caption = "Celestrix file format"}, {}},
    {New<FileFormat>(0), {.Name = "FileFormat", .Index = 0,
      .Left = 153, .Top = 380, .Width = 81, .Height = 20, .InitialParent = "GroupBox1",
      .Caption = "Palm (PDB)"}, {}},
    {New<FileFormat>(1), {.Name = "FileFormat", .Index = 1,
      .Left = 246, .Top = 380, .Width = 110, .Height = 20, .InitialParent = "GroupBox1",
      .Caption = "Pocket PC (PPC)"}, {}},
  };
  // clang-format on
  for (const ControlRow& row : rows) {
    const String name(std::string_view(row.properties.Name));
    AddControl(name, row.control);
    const Ref<RectControl> control = ControlNamed<RectControl>(name, row.properties.Index);
    _SetProperties(control, row.properties);
    for (const HandlerRow& handler : row.handlers) Install(control, handler);
  }
}

void Window1::SaveBtn_Action() { celestrix::SaveBtn_Action(Self()); }

Ref<Window1> Window1::Self() { return Ref<Window>(shared_from_this()).As<Window1>(); }

}  // namespace celestrix
