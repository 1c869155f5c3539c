// The controls of a window.
//
// A control is made, added to its window under its name (Window::AddControl), and then given its properties
// (_SetProperties) and its event handlers (_InstallInstanceEventHandler), in that order. Handlers look
// controls up by name each time they run (RuntimeWindowControlByName).
#pragma once

#include <map>

#include "services/ui/drag_item.h"

namespace celestrix {

class Control;
class Window;
struct ToolkitWidget;  // what the toolkit shows for a control, under a name that is none of the toolkit's

enum Edge : unsigned { kLeft = 1, kTop = 2, kRight = 4, kBottom = 8 };

/// The Index of a control that is not a member of a control set.
inline constexpr std::int32_t kNoIndex = INT32_MIN;

/// The properties that a layout gives to a control. Lengths are pixels at scale 1, positions are relative to the
/// window's content. What is not listed here is fixed: the font is the desktop's, plain; fields hold plain text in
/// several lines, with a vertical scroll bar, and Tab leaves them; buttons react to neither Return nor Escape.
struct ControlProperties {
  const char* Name = "";
  std::int32_t Left = 0, Top = 0, Width = 0, Height = 0;
  /// The window edges to which the control keeps its distance: kLeft and so on, combined with |. A control that is
  /// locked to opposite edges stretches. (A control in a group box has none: it moves with the box.)
  unsigned Locks = 0;
  /// The name of the group box that contains the control; empty if it is directly in the window.
  const char* InitialParent = "";
  /// What screen readers say about a control without a caption: its name, and more on request.
  const char* AccessibleName = "";
  const char* AccessibleDescription = "";
  /// The text of a static text, button or group box.
  const char* Caption = "";
  bool Enabled = true;
  /// The height of the font. It becomes smaller if the caption would not fit.
  std::int32_t TextSize = 11;
  /// Colours are 0xRRGGBB.
  std::uint32_t TextColor = 0x000000;  // static texts and fields
  std::uint32_t BackColor = 0xFFFFFF;  // fields
};

/// The arguments of an event. Only "DropObject" has any.
struct Event {
  Ref<DragItem> item;
  std::int32_t action = 0;  // the drop action: always 1, to copy
};

/// `self` is the window of the control that raised the event.
using EventHandler = std::function<void(const Ref<Window>& self, const Event& event)>;

/// The base of all controls: a name in a window, and handlers of events.
class Control : public std::enable_shared_from_this<Control> {
 public:
  virtual ~Control() = default;

  const String& Name() const { return name_; }
  std::int32_t Index() const { return index_; }
  void Index(std::int32_t index) { index_ = index; }

 protected:
  /// Queues the handler of that event, if there is one (event_queue.h).
  void Raise(const char* event, const Event& arguments = {});

 private:
  friend class Window;
  friend void _InstallInstanceEventHandler(const Ref<Control>&, const char*, EventHandler);
  friend Ref<Window> RuntimeSwapSelfAndMe(const Ref<Control>&);

  String name_;
  std::int32_t index_ = kNoIndex;
  std::weak_ptr<Window> window_;
  std::map<std::string, EventHandler> handlers_;
};

/// A control with a place in the window.
class RectControl : public Control {
 public:
  void Enabled(bool enabled);

 protected:
  friend void _SetProperties(const Ref<RectControl>&, const ControlProperties&);

  /// Makes the widget inside the given parent, which then owns it.
  virtual ToolkitWidget MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) = 0;

  std::shared_ptr<ToolkitWidget> widget_;
};

class StaticText : public RectControl {
  ToolkitWidget MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) override;
};

/// The frame around a set of radio buttons.
class GroupBox : public RectControl {
  ToolkitWidget MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) override;
};

/// Raises "Action" when it is pushed.
class PushButton : public RectControl {
  ToolkitWidget MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) override;
};

/// One choice of several: choosing it clears the others of the same parent. The user can choose at any time, even while
/// a handler runs.
class RadioButton : public RectControl {
 public:
  bool Value() const;
  void Value(bool chosen);

 private:
  ToolkitWidget MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) override;
};

/// The text field. Raises
///   "Open"        once, when its window opens;
///   "TextChange"  whenever its text changes, even if the program sets it;
///   "DropObject"  when something that it accepts is dropped on it from outside. (Dragging a selection within the
///                 field is an edit.) A drop always copies; a source that does not allow that is refused.
class EditField : public RectControl {
 public:
  /// The whole text. Only EndOfLine separates its lines, however the text came in; all other characters are as they
  /// were set, typed or pasted.
  String Text() const;
  /// Replaces all of the text, at once. The screen follows in slices, between events, so that the window stays
  /// responsive; the same holds for a paste. If the user touches the field before that, it shows the rest at once.
  /// Raises an error, and changes nothing, if there is not enough memory, or if showing the text would take unbearably
  /// long: if it has more than 4 million lines, or a line of more than a million characters, where a character beyond
  /// U+02FF counts as a hundred.
  void Text(const String& text);
  /// Whether there is no text. Unlike Text, this takes the same time for any length.
  bool IsEmpty() const;

  /// Lets the field accept files of the registered type of that name. A file of another type is refused.
  void AcceptFileDrop(const String& fileType);
  /// Lets it accept text. The address of a page (http) is text; that of a file on another computer is refused.
  void AcceptTextDrop();

 private:
  ToolkitWidget MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) override;
};

/// Connects an event of the control to a handler, which replaces an earlier one.
void _InstallInstanceEventHandler(const Ref<Control>& control, const char* event, EventHandler handler);

/// The window of the control that raised an event: the `self` of the event's handler.
Ref<Window> RuntimeSwapSelfAndMe(const Ref<Control>& me);

}  // namespace celestrix
