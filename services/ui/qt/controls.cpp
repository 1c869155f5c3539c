#include "services/ui/controls.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>

#include "services/base/file_type.h"
#include "services/ui/event_queue.h"
#include "services/ui/qt/strings.h"
#include "services/ui/qt/text_field.h"
#include "services/ui/qt/toolkit_widget.h"
#include "services/ui/window.h"

namespace celestrix {

namespace {

constexpr int kSmallestTextSize = 6;

void SetColor(QWidget& widget, QPalette::ColorRole role, QRgb color) {
  QPalette palette = widget.palette();
  palette.setColor(role, QColor(color));
  widget.setPalette(palette);
}

void SetTextSize(QWidget& widget, int pixels) {
  QFont font;  // not the widget's: all but the size stays the desktop's, even when the desktop's changes
  font.setPixelSize(pixels);
  widget.setFont(font);
}

/// Guards a control against the desktop's theme. Its text gets the largest font, up to the given size, with which it
/// fits, and again whenever the theme's font or style changes. Neither Return nor Escape presses it.
class ThemeGuard final : public QObject {
 public:
  ThemeGuard(QWidget* widget, int pixels, std::function<bool()> fits)
      : QObject(widget), widget_(*widget), pixels_(pixels), fits_(std::move(fits)) {
    FitText();
  }

  bool eventFilter(QObject* /*widget*/, QEvent* event) override {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) FitText();
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    event->setAccepted(key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Escape);
    return !event->isAccepted();
  }

 private:
  void FitText() {
    widget_.removeEventFilter(this);  // trying a font must not start another fit
    int pixels = pixels_;
    SetTextSize(widget_, pixels);
    while (pixels > kSmallestTextSize && !fits_()) SetTextSize(widget_, --pixels);
    widget_.installEventFilter(this);
  }

  QWidget& widget_;
  const int pixels_;
  const std::function<bool()> fits_;
};

/// For a button: its caption has to fit into the room that the style leaves for it.
void GuardButton(QAbstractButton* button, const ControlProperties& properties, QStyle::SubElement contents) {
  button->resize(properties.Width, properties.Height);
  new ThemeGuard(button, properties.TextSize, [button, contents] {
    QStyleOptionButton option;
    option.initFrom(button);
    option.text = button->text();
    return button->fontMetrics().horizontalAdvance(button->text()) <=
           button->style()->subElementRect(contents, &option, button).width();
  });
}

TextField& FieldIn(const std::shared_ptr<ToolkitWidget>& widget) { return static_cast<TextField&>(*widget->widget); }

class ChoiceButton final : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

 protected:
  void nextCheckState() override {
    RaiseEvent([this] { setChecked(true); });
  }
};

}  // namespace

// ---- Control

void Control::Raise(const char* event, const Event& arguments) {
  const auto handler = handlers_.find(event);
  if (handler == handlers_.end()) return;
  RaiseEvent([me = Ref<Control>(shared_from_this()), handler = handler->second, arguments] {
    handler(RuntimeSwapSelfAndMe(me), arguments);
  });
}

void _InstallInstanceEventHandler(const Ref<Control>& control, const char* event, EventHandler handler) {
  control->handlers_.insert_or_assign(event, std::move(handler));
}

Ref<Window> RuntimeSwapSelfAndMe(const Ref<Control>& me) { return me->window_.lock(); }

// ---- RectControl

void RectControl::Enabled(bool enabled) { widget_->widget->setEnabled(enabled); }

// ---- The controls

ToolkitWidget StaticText::MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) {
  auto* label = new QLabel(QString::fromUtf8(properties.Caption), parent.widget);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  SetColor(*label, QPalette::WindowText, properties.TextColor);
  new ThemeGuard(label, properties.TextSize, [label, width = properties.Width, height = properties.Height] {
    return label->heightForWidth(width) <= height;
  });
  return {label};
}

ToolkitWidget GroupBox::MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) {
  auto* box = new QGroupBox(QString::fromUtf8(properties.Caption), parent.widget);
  new ThemeGuard(box, properties.TextSize,
                 [box, width = properties.Width] { return box->minimumSizeHint().width() <= width; });
  return {box};
}

ToolkitWidget PushButton::MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) {
  auto* button = new QPushButton(QString::fromUtf8(properties.Caption), parent.widget);
  GuardButton(button, properties, QStyle::SE_PushButtonContents);
  QObject::connect(button, &QPushButton::clicked, button, [this] { Raise("Action"); });
  return {button};
}

ToolkitWidget RadioButton::MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) {
  auto* button = new ChoiceButton(QString::fromUtf8(properties.Caption), parent.widget);
  GuardButton(button, properties, QStyle::SE_RadioButtonContents);
  return {button};
}

bool RadioButton::Value() const { return static_cast<const QRadioButton&>(*widget_->widget).isChecked(); }
void RadioButton::Value(bool chosen) { static_cast<QRadioButton&>(*widget_->widget).setChecked(chosen); }

ToolkitWidget EditField::MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) {
  auto* field = new TextField(parent.widget);
  field->onTextChanged = [this] { Raise("TextChange"); };
  field->onDrop = [this](const Ref<DragItem>& item) { Raise("DropObject", {item, Qt::CopyAction}); };
  SetColor(*field, QPalette::Text, properties.TextColor);
  SetColor(*field, QPalette::Base, properties.BackColor);
  SetTextSize(*field, properties.TextSize);
  return {field};
}

String EditField::Text() { return FieldIn(widget_).Text(); }
void EditField::Text(const String& text) { FieldIn(widget_).SetText(text); }
bool EditField::IsEmpty() const { return FieldIn(widget_).IsEmpty(); }

void EditField::AcceptFileDrop(const String& fileType) {
  FieldIn(widget_).AcceptFiles(RegisteredFileTypeNamed(fileType).Extensions);
}
void EditField::AcceptTextDrop() { FieldIn(widget_).AcceptText(); }

}  // namespace celestrix
