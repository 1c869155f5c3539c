// Window: a document window with a menu bar and controls.
#pragma once

#include "services/ui/controls.h"
#include "services/ui/menu.h"

namespace celestrix {

/// Sizes are those of the window's content, without the menu bar, in pixels at scale 1.
struct WindowProperties {
  const char* Title = "";
  std::int32_t Width = 0, Height = 0;
  std::int32_t MinWidth = 0, MinHeight = 0;
  std::int32_t MaxWidth = 0, MaxHeight = 0;
};

/// A derived class says what is in the window and what happens when it opens and closes.
class Window : public std::enable_shared_from_this<Window> {
 public:
  Window();
  virtual ~Window();

  /// Builds the window (Layout, CreateControls, AddMenuHandlers), raises the controls' "Open" events and Event_Open,
  /// and then shows it.
  void Open();

  void MenuBar(const Ref<celestrix::MenuBar>& bar);
  const Ref<celestrix::MenuBar>& MenuBar() const { return menuBar_; }

  /// Adds a control under a name, and keeps it. A member of a control set must have its Index already.
  void AddControl(const String& name, const Ref<RectControl>& control);

 protected:
  virtual void Layout() = 0;
  virtual void CreateControls() = 0;
  /// Adds the handlers of the menu items of the given window, which is this one.
  virtual void AddMenuHandlers(const Ref<Window>& window) = 0;
  /// Called when the controls exist, before the user sees them.
  virtual void Event_Open() = 0;
  /// Called when the user or the platform closes the window. However the handler ends, the window closes and the
  /// program ends.
  virtual void Event_Close() = 0;

 private:
  friend void _SetProperties(const Ref<Window>&, const WindowProperties&);
  friend void _SetProperties(const Ref<RectControl>&, const ControlProperties&);
  friend void KeepWhatClosingKeeps();
  friend Ref<RectControl> RuntimeWindowControlByNameIndex(const Ref<Window>&, const String&, std::int32_t);

  class Frame;
  void Close();

  Ref<celestrix::MenuBar> menuBar_;
  std::vector<Ref<RectControl>> controls_;  // in the order in which they were added
  // The toolkit's window, which owns the widgets of all controls. It is the last member, so it is destroyed first: its
  // widgets may still call their controls meanwhile.
  std::unique_ptr<Frame> frame_;
};

/// Applies a layout's properties to the window.
void _SetProperties(const Ref<Window>& window, const WindowProperties& properties);

/// Applies a layout's properties to a control that has been added to its window. Must be called before the window is
/// shown, because that positions the controls. Raises NilObjectException if InitialParent names no earlier control.
void _SetProperties(const Ref<RectControl>& control, const ControlProperties& properties);

/// The window's control of that name; the member of the control set of that name with that index. Null when
/// there is none.
Ref<RectControl> RuntimeWindowControlByName(const Ref<Window>& window, const String& name);
Ref<RectControl> RuntimeWindowControlByNameIndex(const Ref<Window>& window, const String& name, std::int32_t index);

}  // namespace celestrix
