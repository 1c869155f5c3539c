#include "services/ui/qt/text_field.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMimeData>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTextCursor>
#include <QTimerEvent>
#include <QUrl>
#include <algorithm>
#include <memory>
#include <utility>

#include "services/ui/qt/strings.h"

namespace celestrix {

namespace {

constexpr std::size_t kSliceSize = 32 * 1024;  // bytes; some two milliseconds of the toolkit's time
constexpr qint64 kFillMilliseconds = 8;        // how long the event loop may wait for slices

// Laying out a line takes a third of a microsecond for each character of it.
constexpr qsizetype kLongestPiece = 4096;
// What stands in the document between the pieces of a line: a code point that is no character, by which the piece
// is known to go on in the next block. It is part of the document, so that undoing restores it.
constexpr QChar kGoesOn(0xFDD2);
const QString kPieceEnd = QString(kGoesOn) + QChar::LineFeed;

constexpr std::ptrdiff_t kMostLineEnds = 1 << 24;  // the toolkit needs some 150 bytes for each line

/// How many bytes to take from the text: about a slice, up to the end of a line if there is one, never less
/// than a whole character or line ending.
std::size_t SliceOf(std::string_view text) {
  if (text.size() <= kSliceSize) return text.size();
  const std::size_t lineEnd = text.rfind('\n', kSliceSize - 1);
  if (lineEnd != std::string_view::npos) return lineEnd + 1;
  std::size_t end = kSliceSize;
  while ((static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;  // into a character
  return text[end] == '\n' ? end + 1 : end;
}

/// The text as the document holds it: with very long lines in pieces.
QString ToDocument(const QString& text) {
  QString document;
  qsizetype done = 0;
  for (qsizetype start = 0; start < text.size();) {
    const qsizetype lineEnd = text.indexOf(QChar::LineFeed, start);
    const qsizetype end = lineEnd >= 0 ? lineEnd + 1 : text.size();
    while (end - start > kLongestPiece) {
      start += kLongestPiece;
      if (text[start].isLowSurrogate() || text[start] == QChar::LineFeed) --start;  // keeps pairs and CR LF together
      document += QStringView(text).sliced(done, start - done);
      document += kPieceEnd;
      done = start;
    }
    start = end;
  }
  return done == 0 ? text : document.append(QStringView(text).sliced(done));
}

/// The text that a document, or a part of one, stands for.
QString FromDocument(QString raw) {
  raw.replace(QChar::ParagraphSeparator, QChar::LineFeed);
  return raw.remove(kPieceEnd).remove(kGoesOn);
}

/// Whether the event can change the text, the selection or the cursor, or shows a menu that can.
bool IsEditing(const QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
      const int key = static_cast<const QKeyEvent&>(event).key();
      return key != Qt::Key_Tab && key != Qt::Key_Backtab;  // these leave the field, and what follows is not for it
    }
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::ContextMenu:
      return true;
    default:
      return false;
  }
}

/// The path of the first item of a drop, if that is a file here; else empty.
QString FirstFile(const QMimeData& mime) {
  QUrl first = mime.urls().value(0);
  if (first.host() == QLatin1String("localhost")) first.setHost({});
  return first.toLocalFile();
}

/// A copy of what an accepted drop brings: a file goes before text.
Ref<DragItem> ItemOf(const QMimeData& mime) {
  const QString file = FirstFile(mime);
  if (file.isEmpty()) return New<DragItem>(nullptr, true, FromQString(mime.text()));
  return New<DragItem>(New<FolderItem>(QFileInfo(file).filesystemFilePath()), false, String());
}

}  // namespace

TextField::TextField(QWidget* parent, Events events) : QPlainTextEdit(parent), events_(std::move(events)) {
  setTabChangesFocus(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWordWrapMode(QTextOption::WrapAnywhere);  // looking for words takes the square of a line's length
  connect(document(), &QTextDocument::contentsChange, this, &TextField::DocumentChanges);
  connect(this, &QPlainTextEdit::textChanged, this, &TextField::TextWasChanged);
}

// ---- The text

String TextField::Text() {
  // What the user did before the question belongs to the answer.
  while (!postponed_.empty() && !IsWhole()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  if (!edited_) return text_;
  return RuntimeAddString(FromQString(FromDocument(document()->toRawText())), String(rest_));
}

void TextField::SetText(const String& text) {
  if (std::ranges::count_if(text.Bytes(), [](char c) { return c == '\n' || c == '\r'; }) > kMostLineEnds)
    throw RuntimeException("The text has more lines than the field can hold.");
  postponed_.clear();
  {
    const QScopedValueRollback filling(filling_, true);
    edited_ = false;
    text_ = text;
    rest_ = text_.Bytes();
    document()->setUndoRedoEnabled(false);
    setPlainText(TakeSlice());
  }
  if (IsWhole())
    BecomeWhole();
  else
    betweenEvents_.start(0, this);
  events_.textChanged();
}

QString TextField::TakeSlice() {
  const std::string_view slice = rest_.substr(0, SliceOf(rest_));
  rest_.remove_prefix(slice.size());
  const QString shown = ToDocument(QString::fromUtf8(slice.data(), static_cast<qsizetype>(slice.size())));
  const bool midLine = !rest_.empty() && slice.back() != '\n';
  return midLine ? shown + kPieceEnd : shown;
}

void TextField::AddSlice() {
  QTextCursor end(document());
  end.movePosition(QTextCursor::End);
  end.insertText(TakeSlice());
}

void TextField::timerEvent(QTimerEvent* event) {
  if (event->timerId() != betweenEvents_.timerId()) return QPlainTextEdit::timerEvent(event);
  {
    const QScopedValueRollback filling(filling_, true);
    QElapsedTimer sinceStart;
    sinceStart.start();
    // As one edit: after each, the toolkit lays out the page at the text's end.
    QTextCursor edit(document());
    edit.beginEditBlock();
    while (!IsWhole() && sinceStart.elapsed() < kFillMilliseconds) AddSlice();
    edit.endEditBlock();
  }
  if (IsWhole()) BecomeWhole();
}

void TextField::BecomeWhole() {
  betweenEvents_.stop();
  document()->setUndoRedoEnabled(true);
  if (edited_) text_ = String();
  for (const auto& action : std::exchange(postponed_, {})) action();
}

// An accessibility client edits without waiting until the text is whole. What is still to come belongs behind what
// the client left; but if it took away all that it saw, it meant everything.
void TextField::DocumentChanges(int position, int removed, int added) {
  if (filling_ || IsWhole()) return;
  const int shownBefore = document()->characterCount() - 1 - added + removed;
  if (position == 0 && removed >= shownBefore) rest_ = {};
}

void TextField::TextWasChanged() {
  if (filling_) return;
  edited_ = true;
  if (IsWhole()) BecomeWhole();
  events_.textChanged();
}

// ---- The clipboard, and drags of a selection

QMimeData* TextField::createMimeDataFromSelection() const {
  auto* mime = new QMimeData;
  mime->setText(FromDocument(textCursor().selectedText()));
  return mime;
}

void TextField::insertFromMimeData(const QMimeData* mime) {
  textCursor().insertText(ToDocument(mime->text()));
  ensureCursorVisible();
}

// ---- What waits until the field is whole

void TextField::WhenWhole(std::function<void()> action) {
  if (IsWhole())
    action();
  else
    postponed_.push_back(std::move(action));
}

bool TextField::Postpone(QObject* receiver, QEvent* event) {
  if (IsWhole() || !IsEditing(*event)) return false;
  postponed_.push_back([receiver = QPointer(receiver), later = std::shared_ptr<QEvent>(event->clone())] {
    if (receiver) QCoreApplication::sendEvent(receiver, later.get());
  });
  return true;
}

bool TextField::event(QEvent* event) { return Postpone(this, event) || QPlainTextEdit::event(event); }

bool TextField::viewportEvent(QEvent* event) {
  return Postpone(viewport(), event) || QPlainTextEdit::viewportEvent(event);
}

// ---- Drops from outside

bool TextField::IsOwnDrag(const QDropEvent& event) const {
  return event.source() == this || event.source() == viewport();
}

bool TextField::Accepts(const QDropEvent& event) const {
  if (!event.possibleActions().testFlag(Qt::CopyAction)) return false;
  const QMimeData& mime = *event.mimeData();
  if (const QString file = FirstFile(mime); !file.isEmpty())
    return acceptedFiles_ != nullptr && acceptedFiles_->Matches(file.toStdString());
  return acceptsText_ && mime.hasText();
}

void TextField::dragEnterEvent(QDragEnterEvent* event) {
  if (IsOwnDrag(*event)) return QPlainTextEdit::dragEnterEvent(event);
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(Accepts(*event));
}

void TextField::dragMoveEvent(QDragMoveEvent* event) {
  if (IsOwnDrag(*event)) return QPlainTextEdit::dragMoveEvent(event);
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(Accepts(*event));
}

void TextField::dropEvent(QDropEvent* event) {
  if (IsOwnDrag(*event)) return QPlainTextEdit::dropEvent(event);
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(Accepts(*event));
  if (!event->isAccepted()) return;
  // The source waits until this returns, so the handler, which may have to show an alert, comes later.
  QMetaObject::invokeMethod(
      this, [this, item = ItemOf(*event->mimeData())] { events_.dropped(item); }, Qt::QueuedConnection);
}

}  // namespace celestrix
