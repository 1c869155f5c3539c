#include "services/ui/qt/text_loader.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QTimer>
#include <algorithm>

#include "services/base/big_block.h"
#include "services/ui/qt/strings.h"

namespace celestrix {

namespace {

// A slice ends at the end of the line where one of these is reached. It takes Qt some eight milliseconds.
constexpr std::size_t kSliceSize = 128 * 1024;  // bytes
constexpr int kSliceLines = 2500;

constexpr std::size_t kBytesPerLine = 400, kBytesPerByte = 4;  // text_loader.h
constexpr std::size_t kBytesBesides = 32 << 20;                // for a slice, which may be the longest line

}  // namespace

TextLoader::TextLoader(QPlainTextEdit& field) : field_(field) {
  field.installEventFilter(this);
  field.viewport()->installEventFilter(this);
}

void TextLoader::RequireRoom(int lines, std::size_t bytes) {
  const std::size_t size = kBytesPerLine * static_cast<std::size_t>(lines) + kBytesPerByte * bytes + kBytesBesides;
  FreeBlock(AllocateBlock(size), size);
}

void TextLoader::Load(const String& text) {
  waiting_.clear();
  // Freeing the old document takes as long as everything else here, so an event of its own does it.
  QTextDocument* const old = field_.document();
  old->setParent(this);           // or the field would free it at once
  if (QAccessible::isActive()) {  // Qt tells the clients of removals within a document, but not of this one
    QAccessibleTextRemoveEvent removal(&field_, 0, QString(old->characterCount() - 1, ' '));
    QAccessible::updateAccessibility(&removal);
  }
  const QScopedValueRollback filling(filling_, true);
  field_.setDocument(nullptr);
  field_.document()->setDefaultFont(old->defaultFont());
  field_.document()->setUndoRedoEnabled(false);
  QTimer::singleShot(1, old, &QObject::deleteLater);
  Begin(text, QTextCursor(field_.document()));
  field_.moveCursor(QTextCursor::Start);
}

void TextLoader::Insert(const String& text) { Begin(text, field_.textCursor()); }

void TextLoader::Begin(const String& text, const QTextCursor& place) {
  rest_ = text;
  place_ = place;
  place_.beginEditBlock();
  AddSlice();
}

/// The next slice: whole lines, at least one, however long. Adding to a line that is already shown would take time
/// quadratic in its length.
QString TextLoader::TakeSlice() {
  const std::string_view rest = rest_.Bytes();
  std::size_t size = 0;
  for (int line = 0; line < kSliceLines && size < std::min(kSliceSize, rest.size()); ++line)
    size = std::min(rest.find('\n', size), rest.size() - 1) + 1;
  QString slice = ToQString(rest.substr(0, size));
  rest_ = rest_.Slice(size);
  return slice;
}

/// Ends the edit block that the caller has begun.
void TextLoader::AddSlice() {
  {
    const QScopedValueRollback filling(filling_, true);
    place_.insertText(TakeSlice());
    place_.endEditBlock();
  }
  if (!IsWhole()) return betweenEvents_.start(0, this);
  rest_ = String();  // releases the bytes
  if (field_.document()->isUndoRedoEnabled()) field_.ensureCursorVisible();
  field_.document()->setUndoRedoEnabled(true);
}

void TextLoader::timerEvent(QTimerEvent* /*event*/) {
  if (!IsWhole()) {
    place_.joinPreviousEditBlock();
    AddSlice();
  }
  while (IsWhole() && !waiting_.empty()) {  // an action may begin to insert a text, and then the others wait on
    const std::function<void()> action = std::move(waiting_.front());
    waiting_.pop_front();
    action();
  }
  if (IsWhole()) betweenEvents_.stop();
}

void TextLoader::WhenWhole(std::function<void()> action) {
  if (IsWhole()) return action();
  waiting_.push_back(std::move(action));
}

void TextLoader::AwaitWaiting() const {
  while (!waiting_.empty()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

bool TextLoader::eventFilter(QObject* receiver, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return pressIsIgnored_ = !IsWhole();
    case QEvent::MouseButtonRelease:
      return std::exchange(pressIsIgnored_, false);  // the field gets it if it got the press
    case QEvent::KeyPress:
      if (const int key = static_cast<QKeyEvent*>(event)->key(); key == Qt::Key_Tab || key == Qt::Key_Backtab)
        return false;  // it leaves the field, so later keys are not for the field
      [[fallthrough]];
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
      if (IsWhole()) return false;
      WhenWhole([receiver, later = std::shared_ptr<QEvent>(event->clone())] {
        QCoreApplication::sendEvent(receiver, later.get());
      });
      return true;
    default:
      return false;
  }
}

}  // namespace celestrix
