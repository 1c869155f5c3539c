#include "services/ui/qt/text_field.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QUrl>
#include <algorithm>

#include "services/ui/qt/local_file.h"
#include "services/ui/qt/strings.h"

namespace celestrix {

namespace {

// The toolkit needs some 150 bytes for each line, and up to 0.7 s to lay out a line of a million characters.
constexpr int kMostLineEnds = 1 << 24;
constexpr std::size_t kLongestLine = 1'000'000;  // characters

/// The text with EndOfLine wherever the field shows the end of a line. The toolkit also ends one at a paragraph
/// separator and at two non-characters.
String WithEndOfLines(const String& text) {
  String lines = ReplaceLineEndings(text, EndOfLine());
  for (const String& lineEnd : {"\u2029"_s, "\uFDD0"_s, "\uFDD1"_s}) lines = ReplaceAll(lines, lineEnd, EndOfLine());
  return lines;
}

/// What the toolkit hands out raw, where every line but the last ends in a paragraph separator.
QString WithLineFeeds(QString raw) { return raw.replace(QChar::ParagraphSeparator, QChar::LineFeed); }

std::size_t CharacterCount(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::ranges::count_if(utf8, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }));
}

/// Raises RuntimeException for a text that the toolkit could not show in any bearable time.
void RequireThatItFits(std::string_view text) {
  for (int lineEnds = 0;; ++lineEnds) {
    if (lineEnds > kMostLineEnds) throw RuntimeException("The text has more lines than the field can hold.");
    const std::size_t size = std::min(text.find('\n'), text.size());
    // So many bytes without a line end are rare, and only such lines need counting.
    if (size > kLongestLine && CharacterCount(text.substr(0, size)) > kLongestLine)
      throw RuntimeException("The text has a line that is longer than the field can hold.");
    if (size == text.size()) return;
    text.remove_prefix(size + 1);
  }
}

/// A copy of what an accepted drop brings: a file goes before text.
Ref<DragItem> ItemOf(const QMimeData& mime) {
  const QString file = LocalFile(mime.urls().value(0));
  if (file.isEmpty()) return New<DragItem>(WithEndOfLines(FromQString(mime.text())));
  return New<DragItem>(New<FolderItem>(QFileInfo(file).filesystemFilePath()));
}

}  // namespace

TextField::TextField(QWidget* parent, Events events) : QPlainTextEdit(parent), events_(std::move(events)) {
  setTabChangesFocus(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWordWrapMode(QTextOption::WrapAnywhere);  // looking for words takes the square of a line's length
  connect(this, &QPlainTextEdit::textChanged, this, &TextField::TextWasChanged);
}

// ---- The text

String TextField::Text() {
  loader_.AwaitWaiting();  // what the user did before the question belongs to the answer
  if (unedited_) return *unedited_;
  return RuntimeAddString(FromQString(WithLineFeeds(document()->toRawText())), loader_.Rest());
}

void TextField::SetText(const String& text) {
  const String lines = WithEndOfLines(text);
  RequireThatItFits(lines.Bytes());
  loader_.Load(lines);
  unedited_ = lines;
  events_.textChanged();
}

bool TextField::IsEmpty() const { return document()->isEmpty() && loader_.IsWhole(); }

void TextField::TextWasChanged() {
  if (loader_.IsFilling()) return;
  unedited_.reset();
  events_.textChanged();
}

// ---- The clipboard, and drags of a selection

QMimeData* TextField::createMimeDataFromSelection() const {
  auto* mime = new QMimeData;
  mime->setText(WithLineFeeds(textCursor().selectedText()));
  return mime;
}

// The toolkit gets the text alone: it would take Markdown before it, and does not survive content without any format,
// such as that of a program that has ended.
void TextField::insertFromMimeData(const QMimeData* mime) {
  if (!HasText(mime)) return;
  QMimeData text;
  text.setText(mime->text());
  QPlainTextEdit::insertFromMimeData(&text);
}

// ---- Drops from outside

bool TextField::IsOwnDrag(const QDropEvent& event) const {
  return event.source() == this || event.source() == viewport();
}

/// Accepts or refuses a drop, or a drag that may become one. What is accepted is copied.
void TextField::Judge(QDropEvent* event) const {
  const QMimeData& mime = *event->mimeData();
  const QString file = LocalFile(mime.urls().value(0));
  const bool fits = file.isEmpty() ? acceptsText_ && HasText(&mime)
                                   : acceptedFiles_ != nullptr && acceptedFiles_->Matches(file.toStdString());
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(fits && event->possibleActions().testFlag(Qt::CopyAction));
}

void TextField::dragEnterEvent(QDragEnterEvent* event) {
  if (IsOwnDrag(*event)) return QPlainTextEdit::dragEnterEvent(event);
  Judge(event);
}

void TextField::dragMoveEvent(QDragMoveEvent* event) {
  if (IsOwnDrag(*event)) return QPlainTextEdit::dragMoveEvent(event);
  Judge(event);
}

void TextField::dropEvent(QDropEvent* event) {
  if (IsOwnDrag(*event)) return QPlainTextEdit::dropEvent(event);
  Judge(event);
  if (!event->isAccepted()) return;
  // The source waits until this returns, so the handler, which may have to show an alert, comes later.
  QMetaObject::invokeMethod(
      this, [this, item = ItemOf(*event->mimeData())] { events_.dropped(item); }, Qt::QueuedConnection);
}

}  // namespace celestrix
