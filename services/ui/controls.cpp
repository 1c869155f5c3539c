#include "services/ui/controls.h"

#include <QGroupBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <utility>

#include "services/base/file_type.h"
#include "services/ui/event_queue.h"
#include "services/ui/qt/strings.h"
#include "services/ui/qt/text_field.h"
#include "services/ui/window.h"

namespace celestrix {

namespace {

constexpr int kSmallestTextSize = 6;

QColor ToQColor(Color color) { return {color.red, color.green, color.blue}; }

void SetTextSize(QWidget& widget, int pixels) {
  QFont font = widget.font();
  font.setPixelSize(pixels);
  widget.setFont(font);
}

/// Gives the widget the largest font up to that size with which its caption fits, whatever the desktop's font.
void FitText(QWidget& widget, int pixels, const std::function<bool()>& fits) {
  SetTextSize(widget, pixels);
  for (int smaller = pixels - 1; smaller >= kSmallestTextSize && !fits(); --smaller) SetTextSize(widget, smaller);
}

/// Whether a button's caption fits what its style leaves for it.
bool CaptionFits(const QAbstractButton& button, QStyle::SubElement contents) {
  QStyleOptionButton option;
  option.initFrom(&button);
  option.text = button.text();
  return button.fontMetrics().horizontalAdvance(button.text()) <=
         button.style()->subElementRect(contents, &option, &button).width();
}

class ChoiceButton final : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

 protected:
  void nextCheckState() override {
    RaiseEvent([button = QPointer(this)] {
      if (button) button->setChecked(true);
    });
  }
};

}  // namespace

// ---- Control

void Control::Raise(const char* event, const Event& arguments) {
  const auto handler = handlers_.find(event);
  if (handler == handlers_.end()) return;
  RaiseEvent([me = Ref<Control>(shared_from_this()), handler = handler->second, arguments] { handler(me, arguments); });
}

void _InstallInstanceEventHandler(const Ref<Control>& control, const char* event, EventHandler handler) {
  control->handlers_.insert_or_assign(event, std::move(handler));
}

Ref<Window> RuntimeSwapSelfAndMe(const Ref<Control>& me) { return me->window_.lock(); }

// ---- RectControl

RectControl::~RectControl() = default;

void RectControl::Enabled(bool enabled) { widget_->setEnabled(enabled); }

void RectControl::SetProperties(const ControlProperties& properties) {
  Index(properties.Index);
  widget_->setObjectName(QString::fromUtf8(properties.Name));
  widget_->setEnabled(properties.Enabled);
}

// ---- StaticText

QWidget* StaticText::MakeWidget(QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  return label;
}

void StaticText::SetProperties(const ControlProperties& properties) {
  RectControl::SetProperties(properties);
  auto& label = static_cast<QLabel&>(*widget_);
  label.setText(QString::fromUtf8(properties.Caption));
  QPalette palette = label.palette();
  palette.setColor(QPalette::WindowText, ToQColor(properties.TextColor));
  label.setPalette(palette);
  FitText(label, properties.TextSize, [&] { return label.heightForWidth(properties.Width) <= properties.Height; });
}

// ---- GroupBox

QWidget* GroupBox::MakeWidget(QWidget* parent) { return new QGroupBox(parent); }

void GroupBox::SetProperties(const ControlProperties& properties) {
  RectControl::SetProperties(properties);
  auto& box = static_cast<QGroupBox&>(*widget_);
  box.setTitle(QString::fromUtf8(properties.Caption));
  FitText(box, properties.TextSize, [&] { return box.minimumSizeHint().width() <= properties.Width; });
}

// ---- PushButton

QWidget* PushButton::MakeWidget(QWidget* parent) {
  auto* button = new QPushButton(parent);
  QObject::connect(button, &QPushButton::clicked, button, [this] { Raise("Action"); });
  return button;
}

void PushButton::SetProperties(const ControlProperties& properties) {
  RectControl::SetProperties(properties);
  auto& button = static_cast<QPushButton&>(*widget_);
  button.setText(QString::fromUtf8(properties.Caption));
  FitText(button, properties.TextSize, [&] { return CaptionFits(button, QStyle::SE_PushButtonContents); });
}

// ---- RadioButton

QWidget* RadioButton::MakeWidget(QWidget* parent) { return new ChoiceButton(parent); }

void RadioButton::SetProperties(const ControlProperties& properties) {
  RectControl::SetProperties(properties);
  auto& button = static_cast<QRadioButton&>(*widget_);
  button.setText(QString::fromUtf8(properties.Caption));
  FitText(button, properties.TextSize, [&] { return CaptionFits(button, QStyle::SE_RadioButtonContents); });
}

bool RadioButton::Value() const { return static_cast<const QRadioButton&>(*widget_).isChecked(); }

void RadioButton::Value(bool chosen) { static_cast<QRadioButton&>(*widget_).setChecked(chosen); }

// ---- EditField

namespace {

TextField& FieldIn(QWidget* widget) { return static_cast<TextField&>(*widget); }

}  // namespace

QWidget* EditField::MakeWidget(QWidget* parent) {
  return new TextField(parent, {.textChanged = [this] { Raise("TextChange"); },
                                .dropped =
                                    [this](const Ref<DragItem>& item) {
                                      Raise("DropObject", {item, Qt::CopyAction});
                                    }});
}

void EditField::SetProperties(const ControlProperties& properties) {
  RectControl::SetProperties(properties);
  TextField& field = FieldIn(widget_);
  QPalette palette = field.palette();
  palette.setColor(QPalette::Text, ToQColor(properties.TextColor));
  palette.setColor(QPalette::Base, ToQColor(properties.BackColor));
  field.setPalette(palette);
  SetTextSize(field, properties.TextSize);
}

String EditField::Text() { return FieldIn(widget_).Text(); }
void EditField::Text(const String& text) { FieldIn(widget_).SetText(text); }
bool EditField::IsEmpty() const { return FieldIn(widget_).IsEmpty(); }

void EditField::AcceptFileDrop(const String& fileType) {
  FieldIn(widget_).AcceptFiles(RegisteredFileTypeNamed(fileType));
}
void EditField::AcceptTextDrop() { FieldIn(widget_).AcceptText(); }

}  // namespace celestrix
