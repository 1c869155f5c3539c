#include "services/ui/window.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QMenuBar>
#include <algorithm>
#include <string>

#include "services/ui/application.h"
#include "services/ui/event_queue.h"
#include "services/ui/qt/menu_builder.h"
#include "services/ui/qt/strings.h"

namespace celestrix {

namespace {

/// The window's content, which keeps its controls at their distance from the edges that they are locked to.
class Content final : public QWidget {
 public:
  using QWidget::QWidget;

  void SetDesignedSize(QSize size) { designed_ = size; }
  void Place(QWidget* widget, const ControlProperties& properties) {
    const QString parentName = QString::fromUtf8(properties.InitialParent);
    if (!parentName.isEmpty()) return PlaceInside(parentName, widget, properties);
    placed_.push_back({widget, properties});
    Arrange(placed_.back());
  }

 protected:
  void resizeEvent(QResizeEvent* /*event*/) override {
    for (const Placed& placed : placed_) Arrange(placed);
  }

 private:
  struct Placed {
    QWidget* widget;
    ControlProperties properties;
  };

  void PlaceInside(const QString& parentName, QWidget* widget, const ControlProperties& properties) {
    const auto parent = std::find_if(placed_.begin(), placed_.end(), [&](const Placed& placed) {
      return QString::fromUtf8(placed.properties.Name) == parentName;
    });
    widget->setParent(parent->widget);
    widget->setGeometry(properties.Left - parent->properties.Left, properties.Top - parent->properties.Top,
                        properties.Width, properties.Height);
  }

  void Arrange(const Placed& placed) const {
    const ControlProperties& at = placed.properties;
    const auto [left, width] =
        Along(at.Left, at.Width, (at.Locks & kLeft) != 0, (at.Locks & kRight) != 0, this->width() - designed_.width());
    const auto [top, height] = Along(at.Top, at.Height, (at.Locks & kTop) != 0, (at.Locks & kBottom) != 0,
                                     this->height() - designed_.height());
    placed.widget->setGeometry(left, top, width, height);
  }

  /// Start and length in one direction, when the window has grown by so much in it.
  static std::pair<int, int> Along(int start, int length, bool lockStart, bool lockEnd, int growth) {
    if (!lockEnd) return {start, length};
    if (!lockStart) return {start + growth, length};
    return {start, std::max(0, length + growth)};
  }

  QSize designed_;
  std::vector<Placed> placed_;
};

}  // namespace

class Window::Frame final : public QMainWindow {
 public:
  explicit Frame(Window& window) : window_(window) { setCentralWidget(content_ = new Content(this)); }

  Content* ContentPane() { return content_; }

  /// Gives the window the size with which its content has that one.
  void ResizeContent(QSize size) {
    layout()->activate();
    resize(size + Surroundings());
  }
  /// What the menu bar takes away, where it is in the window at all.
  QSize Surroundings() const {
    const bool outside = menuWidget() == nullptr || menuBar()->isNativeMenuBar();
    return {0, outside ? 0 : menuWidget()->sizeHint().height()};
  }

 protected:
  void closeEvent(QCloseEvent* event) override {
    // The close handler may have to wait for its turn; the window hides when it has run.
    event->ignore();
    window_.Close();
  }

 private:
  Window& window_;
  Content* content_;
};

Window::Window() : frame_(std::make_unique<Frame>(*this)) {}
Window::~Window() = default;

void Window::Open() {
  Layout();
  CreateControls();
  for (const Ref<RectControl>& control : controls_) control->Raise("Open");
  RaiseEvent([this] { Event_Open(); });
  frame_->show();
}

void Window::Close() {
  // Both hold the window; the first one normally ends the program, and with it the queue.
  RaiseEvent([self = shared_from_this()] { self->Event_Close(); });
  RaiseEvent([self = shared_from_this()] {
    self->frame_->hide();
    Quit(EXIT_SUCCESS);
  });
}

void Window::MenuBar(const Ref<celestrix::MenuBar>& bar) {
  menuBar_ = bar;
  BuildMenuBar(*frame_->menuBar(), *bar);
}

void Window::AddControl(const String& name, const Ref<RectControl>& control) {
  control->name_ = name;
  control->window_ = weak_from_this();
  control->widget_ = control->MakeWidget(frame_->ContentPane());
  // The text right before a control is its label, for those who hear the window instead of seeing it.
  if (!controls_.empty())
    if (auto* label = qobject_cast<QLabel*>(controls_.back()->widget_)) label->setBuddy(control->widget_);
  controls_.push_back(control);
}

void _SetProperties(const Ref<Window>& window, const WindowProperties& properties) {
  Window::Frame& frame = *window->frame_;
  frame.setWindowTitle(QString::fromUtf8(properties.Title));
  frame.ContentPane()->SetDesignedSize({properties.Width, properties.Height});
  frame.ContentPane()->setMinimumSize(properties.MinWidth, properties.MinHeight);
  frame.setMaximumSize(QSize(properties.MaxWidth, properties.MaxHeight) + frame.Surroundings());
  frame.ResizeContent({properties.Width, properties.Height});
}

void _SetProperties(const Ref<RectControl>& control, const ControlProperties& properties) {
  RuntimeSwapSelfAndMe(control)->frame_->ContentPane()->Place(control->widget_, properties);
  control->SetProperties(properties);
}

Ref<RectControl> RuntimeWindowControlByName(const Ref<Window>& window, const String& name) {
  return RuntimeWindowControlByNameIndex(window, name, kNoIndex);
}

Ref<RectControl> RuntimeWindowControlByNameIndex(const Ref<Window>& window, const String& name, std::int32_t index) {
  for (const Ref<RectControl>& control : window->controls_)
    if (control->Name() == name && control->Index() == index) return control;
  const std::string member = index == kNoIndex ? "" : " with the number " + std::to_string(index);
  return Ref<RectControl>::Nil("The window has no control “" + std::string(name.Bytes()) + "”" + member + ".");
}

}  // namespace celestrix
