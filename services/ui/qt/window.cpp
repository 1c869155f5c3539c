#include "services/ui/window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMainWindow>
#include <QMenuBar>

#include "services/ui/application.h"
#include "services/ui/event_queue.h"
#include "services/ui/qt/menu_builder.h"
#include "services/ui/qt/program_window.h"
#include "services/ui/qt/toolkit_widget.h"

namespace celestrix {

namespace {

/// The window's content, which keeps its controls at their distance from the edges that they are locked to.
class Content final : public QWidget {
 public:
  using QWidget::QWidget;

  void SetDesignedSize(QSize size) { designed_ = size; }

  void Place(QWidget* widget, const ControlProperties& at) {
    const QPoint origin = widget->parentWidget()->mapTo(this, QPoint());
    widget->setGeometry(QRect(at.Left, at.Top, at.Width, at.Height).translated(-origin));
    if (widget->parentWidget() != this) return;  // it moves with its group
    placed_.emplace_back(widget, at);
  }

 protected:
  void resizeEvent(QResizeEvent* /*event*/) override {
    const int wider = width() - designed_.width(), higher = height() - designed_.height();
    for (const auto& [widget, at] : placed_) {
      QRect place(at.Left, at.Top, at.Width, at.Height);
      if ((at.Locks & kRight) != 0) place.adjust((at.Locks & kLeft) != 0 ? 0 : wider, 0, wider, 0);
      if ((at.Locks & kBottom) != 0) place.adjust(0, (at.Locks & kTop) != 0 ? 0 : higher, 0, higher);
      widget->setGeometry({place.topLeft(), place.size().expandedTo({0, 0})});
    }
  }

 private:
  QSize designed_;
  std::vector<std::pair<QWidget*, ControlProperties>> placed_;
};

}  // namespace

class Window::Frame final : public QMainWindow {
 public:
  explicit Frame(Window& window) : window_(window) { setCentralWidget(new Content(this)); }

  Content& ContentPane() { return static_cast<Content&>(*centralWidget()); }

  /// The room for the menu bar, if it is in the window at all. In some styles this is not its sizeHint.
  QSize Surroundings() const { return {0, menuBar()->isNativeMenuBar() ? 0 : menuBar()->heightForWidth(width())}; }

 protected:
  void closeEvent(QCloseEvent* event) override {
    // The close handler may have to wait in the queue; the window is hidden when it has run.
    event->ignore();
    window_.Close();
  }

 private:
  Window& window_;
};

QWidget* ProgramWindow() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
  return nullptr;
}

Window::Window() : frame_(std::make_unique<Frame>(*this)) {}
Window::~Window() = default;

void Window::Open() {
  Layout();
  CreateControls();
  AddMenuHandlers(shared_from_this());
  for (const Ref<RectControl>& control : controls_) control->Raise("Open");
  RaiseEvent([this] { Event_Open(); });
  frame_->show();
}

void Window::Close() {
  // Both handlers keep the window alive; the first one normally ends the program, and with it the queue.
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

void _SetProperties(const Ref<Window>& window, const WindowProperties& properties) {
  Window::Frame& frame = *window->frame_;
  frame.setWindowTitle(QString::fromUtf8(properties.Title));
  frame.ContentPane().SetDesignedSize({properties.Width, properties.Height});
  frame.ContentPane().setMinimumSize(properties.MinWidth, properties.MinHeight);
  frame.setMaximumSize(QSize(properties.MaxWidth, properties.MaxHeight) + frame.Surroundings());
  frame.resize(QSize(properties.Width, properties.Height) + frame.Surroundings());
}

void _SetProperties(const Ref<RectControl>& control, const ControlProperties& properties) {
  const Ref<Window> window = RuntimeSwapSelfAndMe(control);
  Content& content = window->frame_->ContentPane();
  const String parent{std::string_view(properties.InitialParent)};
  const bool inWindow = LenB(parent) == 0;
  const ToolkitWidget made = control->MakeWidget(
      inWindow ? ToolkitWidget{&content} : *RuntimeWindowControlByName(window, parent)->widget_, properties);
  control->widget_ = std::make_shared<ToolkitWidget>(made);
  made.widget->setObjectName(QString::fromUtf8(properties.Name));
  made.widget->setAccessibleName(QString::fromUtf8(properties.AccessibleName));
  made.widget->setAccessibleDescription(QString::fromUtf8(properties.AccessibleDescription));
  made.widget->setEnabled(properties.Enabled);
  content.Place(made.widget, properties);
}

}  // namespace celestrix
