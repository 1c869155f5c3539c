#include "services/ui/qt/text_loader.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <algorithm>

#include "services/ui/qt/strings.h"

namespace celestrix {

namespace {

constexpr std::size_t kSliceSize = 128 * 1024;  // bytes; some eight milliseconds of the toolkit's time

}  // namespace

TextLoader::TextLoader(QPlainTextEdit& field) : field_(field) {
  field.installEventFilter(this);
  field.viewport()->installEventFilter(this);
}

void TextLoader::Load(const String& text) {
  waiting_.clear();
  text_ = text;
  rest_ = text_.Bytes();
  {
    const QScopedValueRollback filling(filling_, true);
    field_.document()->setUndoRedoEnabled(false);
    field_.setPlainText(TakeSlice());
  }
  if (IsWhole())
    BecomeWhole();
  else
    betweenEvents_.start(0, this);
}

/// About a slice of whole lines, or one line, however long: adding to a line that is shown already would take the
/// square of its length.
QString TextLoader::TakeSlice() {
  std::size_t size = rest_.size();
  if (size > kSliceSize) {
    std::size_t lineEnd = rest_.rfind('\n', kSliceSize - 1);
    if (lineEnd == std::string_view::npos) lineEnd = rest_.find('\n', kSliceSize);
    size = std::min(size - 1, lineEnd) + 1;
  }
  QString slice = ToQString(rest_.substr(0, size));
  rest_.remove_prefix(size);
  return slice;
}

void TextLoader::AddSlice() {
  const QScopedValueRollback filling(filling_, true);
  QTextCursor end(field_.document());
  end.movePosition(QTextCursor::End);
  end.insertText(TakeSlice());
}

void TextLoader::BecomeWhole() {
  betweenEvents_.stop();
  text_ = String();
  field_.document()->setUndoRedoEnabled(true);
  for (const auto& action : std::exchange(waiting_, {})) action();
}

void TextLoader::timerEvent(QTimerEvent* /*event*/) {
  betweenEvents_.stop();  // an error in a slice, such as want of memory, shall not come back by itself
  AddSlice();
  if (IsWhole())
    BecomeWhole();
  else
    betweenEvents_.start(0, this);
}

void TextLoader::WhenWhole(std::function<void()> action) {
  if (IsWhole()) return action();
  waiting_.push_back(std::move(action));
  betweenEvents_.start(0, this);
}

void TextLoader::AwaitWaiting() const {
  while (!waiting_.empty() && betweenEvents_.isActive()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

bool TextLoader::eventFilter(QObject* receiver, QEvent* event) {
  if (IsWhole()) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
      return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      if (const int key = static_cast<QKeyEvent*>(event)->key(); key == Qt::Key_Tab || key == Qt::Key_Backtab)
        return false;  // it leaves the field, and what follows is not for it
      [[fallthrough]];
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
      WhenWhole([receiver, later = std::shared_ptr<QEvent>(event->clone())] {
        QCoreApplication::sendEvent(receiver, later.get());
      });
      return true;
    default:
      return false;
  }
}

}  // namespace celestrix
