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
struct ToolkitWidget;  // what the toolkit shows for a control

enum Edge : unsigned { kLeft = 1, kTop = 2, kRight = 4, kBottom = 8 };

/// The Index of a control that is no member of a control set.
inline constexpr std::int32_t kNoIndex = INT32_MIN;

/// The properties that a layout gives to a control. Lengths are pixels at scale 1, positions count from the
/// window's content. What is not named here is the framework's way: the font is the desktop's, plain; fields
/// hold plain text of any length in several lines, with a vertical scroll bar, and Tab leaves them; buttons
/// react to neither Return nor Escape.
struct ControlProperties {
  const char* Name = "";
  std::int32_t Left = 0, Top = 0, Width = 0, Height = 0;
  /// The window edges to which the control keeps its distance: kLeft and so on, added with |. Locked to both of a
  /// pair, it stretches. (A control in a group box has none: it moves with the box.)
  unsigned Locks = 0;
  /// The group box that the control is in; it moves with it. Empty for the window.
  const char* InitialParent = "";
  /// The name of the control after it that a static text is the label of, for those who hear the window.
  const char* LabelOf = "";
  /// What a static text, button or group box says.
  const char* Caption = "";
  bool Enabled = true;
  /// The height of the font. Where a caption would not fit its box, a smaller one is taken.
  std::int32_t TextSize = 11;
  /// Colours are 0xRRGGBB.
  std::uint32_t TextColor = 0x000000;  // static texts and fields
  std::uint32_t BackColor = 0xFFFFFF;  // fields
};

/// What an event tells its handler. Only "DropObject" has something to tell.
struct Event {
  Ref<DragItem> item;
  std::int32_t action = 0;  // the drop action, which is always to copy: 1
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
  /// Runs the handler of that event, if there is one, when its turn has come (event_queue.h).
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

  /// Makes the widget inside the given parent, which then owns it, and adopts it.
  virtual void MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) = 0;
  void Adopt(const ToolkitWidget& widget, const ControlProperties& properties);

  std::shared_ptr<ToolkitWidget> widget_;
};

class StaticText : public RectControl {
  void MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) override;
};

/// The frame around a set of radio buttons.
class GroupBox : public RectControl {
  void MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) override;
};

/// Raises "Action" when it is pushed.
class PushButton : public RectControl {
  void MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) override;
};

/// One choice of several: choosing it clears the others of the same parent. A click of the user takes its turn
/// among the handlers, so that no handler sees the choice change while it runs.
class RadioButton : public RectControl {
 public:
  bool Value() const;
  void Value(bool chosen);

 private:
  void MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) override;
};

/// The text field. Raises
///   "Open"        once, when its window opens;
///   "TextChange"  whenever its text changes, also when the program sets it;
///   "DropObject"  when something that it accepts is dropped on it from outside. (Moving a selection within the
///                 field is its own editing.) What is dropped is copied; a source that does not let itself be
///                 copied is refused.
class EditField : public RectControl {
 public:
  /// The whole text. Between its lines stands EndOfLine and nothing else, however the text came in; all other
  /// characters are as they were set, typed or pasted. Edits that wait (see below) are done first, while the event
  /// loop goes on.
  String Text();
  /// Replaces all of the text, at once. What is on the screen follows in slices, between events, so that the window
  /// never stands still; so does what is pasted. In the meantime keys and menu commands wait until the field shows all
  /// of its text, and clicks are ignored. Raises an error, and changes nothing, where the memory does not suffice, or
  /// for a text that could not be shown in any bearable time: of more than 4 million lines, or with a line of more than
  /// a million characters, of which one beyond U+02FF counts as a hundred.
  void Text(const String& text);
  /// Whether there is no text. Unlike a look at Text, this costs the same for every length.
  bool IsEmpty() const;

  /// Lets the field accept files of the registered type of that name. A file of another type is refused.
  void AcceptFileDrop(const String& fileType);
  /// Lets it accept text. What comes as the address of a file elsewhere is text.
  void AcceptTextDrop();

 private:
  void MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) override;
};

/// Applies a layout's properties to a control that has been added to its window. To be called before the window is
/// shown, which puts the control in its place. Raises RuntimeException where InitialParent names no control before it.
void _SetProperties(const Ref<RectControl>& control, const ControlProperties& properties);

/// Connects an event of the control to a handler, in place of an earlier one.
void _InstallInstanceEventHandler(const Ref<Control>& control, const char* event, EventHandler handler);

/// The window of the control that raised an event, which is the own object of the event's handler.
Ref<Window> RuntimeSwapSelfAndMe(const Ref<Control>& me);

}  // namespace celestrix
