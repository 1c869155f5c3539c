#include "services/ui/qt/text_loader.h"

#include <QAccessible>
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

// In 64 bits: on a 32-bit machine the sum may exceed the address space.
constexpr std::uint64_t kBytesPerLine = 400, kBytesPerByte = 4;  // text_loader.h
constexpr std::uint64_t kBytesBesides = 32 << 20;                // for a slice, which may be the longest line

}  // namespace

TextLoader::TextLoader(QPlainTextEdit& field) : field_(field) {
  field.installEventFilter(this);
  field.viewport()->installEventFilter(this);
}

void TextLoader::RequireRoom(int lines, std::size_t bytes) {
  const std::uint64_t size = kBytesPerLine * static_cast<std::uint64_t>(lines) + kBytesPerByte * bytes + kBytesBesides;
  if (size > PTRDIFF_MAX) throw std::bad_alloc();
  FreeBlock(AllocateBlock(static_cast<std::size_t>(size)), static_cast<std::size_t>(size));
}

void TextLoader::Load(const String& text) {
  // Freeing the old document takes as long as everything else here, so a later event does it.
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
  Add(kSlice);
}

void TextLoader::Finish() {
  if (IsWhole()) return;
  place_.joinPreviousEditBlock();
  Add(kAll);
}

void TextLoader::timerEvent(QTimerEvent* /*event*/) {
  place_.joinPreviousEditBlock();
  Add(kSlice);
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
void TextLoader::Add(Amount amount) {
  {
    const QScopedValueRollback filling(filling_, true);
    do place_.insertText(TakeSlice());
    while (amount == kAll && !IsWhole());
    place_.endEditBlock();
  }
  if (!IsWhole()) return betweenEvents_.start(0, this);
  betweenEvents_.stop();
  rest_ = String();  // releases the bytes
  // Show the end of a paste, where the cursor is. But do not scroll under a user who is touching what is shown.
  if (amount == kSlice && field_.document()->isUndoRedoEnabled()) field_.ensureCursorVisible();
  field_.document()->setUndoRedoEnabled(true);
}

bool TextLoader::eventFilter(QObject* /*receiver*/, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress: {
      const int key = static_cast<QKeyEvent*>(event)->key();
      const bool leaves = key == Qt::Key_Tab || key == Qt::Key_Backtab;
      const bool onlyModifies = key >= Qt::Key_Shift && key <= Qt::Key_Alt;  // Alt+F4 closes the window
      if (leaves || onlyModifies) return false;
      [[fallthrough]];
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::ContextMenu:
    case QEvent::InputMethod:
      Finish();
      [[fallthrough]];
    default:
      return false;
  }
}

}  // namespace celestrix
