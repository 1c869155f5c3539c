#include "services/ui/controls.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>

#include "services/base/file_type.h"
#include "services/ui/qt/strings.h"
#include "services/ui/qt/text_field.h"
#include "services/ui/qt/toolkit_widget.h"

namespace celestrix {

namespace {

constexpr int kSmallestTextSize = 6;

void SetColor(QWidget& widget, QPalette::ColorRole role, QRgb color) {
  QPalette palette = widget.palette();
  palette.setColor(role, QColor(color));
  widget.setPalette(palette);
}

void SetTextSize(QWidget& widget, int pixels) {
  QFont font;  // not the widget's: everything but the size keeps following the desktop's font
  font.setPixelSize(pixels);
  widget.setFont(font);
}

/// Guards a control against the desktop's theme. Gives its text the largest font that fits, up to the given size, and
/// does so again whenever the theme's font or style changes. Neither Return nor Escape presses the control.
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

/// For a button: its caption has to fit into the room that the style leaves for it. A click leaves the focus where it
/// is, so that the user can go on typing.
void GuardButton(QAbstractButton* button, const ControlProperties& properties, QStyle::SubElement contents) {
  button->setFocusPolicy(Qt::TabFocus);
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

}  // namespace

void RectControl::Enabled(bool enabled) { widget_->widget->setEnabled(enabled); }

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
  QObject::connect(button, &QPushButton::clicked, button, [this] {
    TextField::EndComposition();
    Raise("Action");
  });
  return {button};
}

ToolkitWidget RadioButton::MakeWidget(const ToolkitWidget& parent, const ControlProperties& properties) {
  auto* button = new QRadioButton(QString::fromUtf8(properties.Caption), parent.widget);
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

String EditField::Text() const { return FieldIn(widget_).Text(); }
void EditField::Text(const String& text) { FieldIn(widget_).SetText(text); }
bool EditField::IsEmpty() const { return FieldIn(widget_).IsEmpty(); }

void EditField::AcceptFileDrop(const String& fileType) {
  FieldIn(widget_).AcceptFiles(RegisteredFileTypeNamed(fileType).Extensions);
}
void EditField::AcceptTextDrop() { FieldIn(widget_).AcceptText(); }

}  // namespace celestrix
