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

constexpr std::size_t kSliceSize = 128 * 1024;   // bytes; some eight milliseconds of the toolkit's time
constexpr std::size_t kBytesPerLine = 150;       // which the toolkit needs besides its characters
constexpr std::size_t kRoomForSlice = 24 << 20;  // bytes; for a slice itself, which may be the longest line

/// Raises std::bad_alloc where there is no memory for so many bytes. The toolkit itself does not survive running out
/// of it.
void RequireRoom(std::size_t size) { FreeBlock(AllocateBlock(size), size); }

}  // namespace

TextLoader::TextLoader(QPlainTextEdit& field) : field_(field) {
  field.installEventFilter(this);
  field.viewport()->installEventFilter(this);
}

void TextLoader::Load(const String& text) {
  RequireRoom(2 * kRoomForSlice);  // more than the first slice asks for: once the old text is gone, nothing may fail
  waiting_.clear();
  rest_ = text;
  // Freeing the old document takes as long as everything else here, so it happens in a turn of its own.
  QTextDocument* const old = field_.document();
  old->setParent(this);           // or the field would free it at once
  if (QAccessible::isActive()) {  // the toolkit tells the clients of what is removed from a document, not of this
    QAccessibleTextRemoveEvent removal(&field_, 0, QString(old->characterCount() - 1, ' '));
    QAccessible::updateAccessibility(&removal);
  }
  field_.setDocument(nullptr);
  field_.document()->setDefaultFont(old->defaultFont());
  field_.document()->setUndoRedoEnabled(false);
  QTimer::singleShot(1, old, &QObject::deleteLater);
  AddSlice();
  field_.moveCursor(QTextCursor::Start);
}

/// About a slice of whole lines, or one line, however long: adding to a line that is shown already would take the
/// square of its length.
QString TextLoader::TakeSlice() {
  const std::string_view rest = rest_.Bytes();
  std::size_t size = rest.size();
  if (size > kSliceSize) {
    std::size_t lineEnd = rest.rfind('\n', kSliceSize - 1);
    if (lineEnd == std::string_view::npos) lineEnd = rest.find('\n', kSliceSize);
    size = std::min(size - 1, lineEnd) + 1;
  }
  QString slice = ToQString(rest.substr(0, size));
  rest_ = rest_.Slice(size);
  return slice;
}

void TextLoader::AddSlice() {
  betweenEvents_.stop();  // an error here, such as a lack of memory, must not repeat itself
  // The toolkit's arrays grow by doubling, so there has to be room for the whole document once more.
  const QTextDocument& document = *field_.document();
  RequireRoom(kRoomForSlice + kBytesPerLine * static_cast<std::size_t>(document.blockCount()) +
              sizeof(QChar) * static_cast<std::size_t>(document.characterCount()));
  {
    const QScopedValueRollback filling(filling_, true);
    QTextCursor end(field_.document());
    end.movePosition(QTextCursor::End);
    end.insertText(TakeSlice());
  }
  if (!IsWhole()) return betweenEvents_.start(0, this);
  rest_ = String();  // lets go of the bytes
  field_.document()->setUndoRedoEnabled(true);
  for (const auto& action : std::exchange(waiting_, {})) action();
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
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return pressIsIgnored_ = !IsWhole();
    case QEvent::MouseButtonRelease:
      return std::exchange(pressIsIgnored_, false);  // the field gets it if it got the press
    case QEvent::KeyPress:
      if (const int key = static_cast<QKeyEvent*>(event)->key(); key == Qt::Key_Tab || key == Qt::Key_Backtab)
        return false;  // it leaves the field, and what follows is not for it
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
