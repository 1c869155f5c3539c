#include "services/ui/qt/text_field.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QTextBlock>
#include <QUrl>
#include <algorithm>

#include "services/ui/qt/local_file.h"
#include "services/ui/qt/strings.h"

namespace celestrix {

namespace {

// 1.4 million sets, for which Qt needs up to 2 GB of memory.
constexpr int kMostLineEnds = 1 << 22;
// A line of a million plain characters takes Qt some 0.5 s for each key. Others may take a hundred times as long as
// those up to U+02FF, whose first byte is less than this one.
constexpr std::size_t kLongestLine = 1'000'000;
constexpr std::size_t kCostOfOther = 100;
constexpr unsigned char kFirstByteOfOther = 0xCC;

constexpr char kUtf8Text[] = "text/plain;charset=utf-8";

/// The text with EndOfLine wherever the field shows the end of a line. Qt also ends one at a paragraph separator and at
/// two non-characters.
String WithEndOfLines(const String& text) {
  String lines = ReplaceLineEndings(text, EndOfLine());
  for (const String& lineEnd : {"\u2029"_s, "\uFDD0"_s, "\uFDD1"_s}) lines = ReplaceAll(lines, lineEnd, EndOfLine());
  return lines;
}

/// What Qt hands out raw, where every line but the last ends in a paragraph separator.
QString WithLineFeeds(QString raw) { return raw.replace(QChar::ParagraphSeparator, QChar::LineFeed); }

/// The length of a line, in plain characters that take Qt as long.
std::size_t CostOf(std::string_view line) {
  const auto isFirst = [](unsigned char byte) { return (byte & 0xC0) != 0x80; };
  const auto isFirstOfOther = [=](unsigned char byte) { return isFirst(byte) && byte >= kFirstByteOfOther; };
  return static_cast<std::size_t>(std::ranges::count_if(line, isFirst)) +
         (kCostOfOther - 1) * static_cast<std::size_t>(std::ranges::count_if(line, isFirstOfOther));
}

/// Raises RuntimeException for a text that Qt could not show in any bearable time, beside so many other lines, and
/// std::bad_alloc where there is no memory for it in place of so many others.
void RequireThatItFits(std::string_view text, int otherLines, int replacedLines) {
  const std::size_t bytes = text.size();
  for (int lineEnds = 0;; ++lineEnds) {
    if (lineEnds > kMostLineEnds - otherLines)
      throw RuntimeException("The text has more lines than the field can hold.");
    const std::size_t size = std::min(text.find('\n'), text.size());
    // So many bytes without a line end are rare, and only such lines need counting.
    if (size > kLongestLine / kCostOfOther && CostOf(text.substr(0, size)) > kLongestLine)
      throw RuntimeException("The text has a line that is longer than the field can hold.");
    if (size == text.size()) return TextLoader::RequireRoom(lineEnds + replacedLines, bytes);
    text.remove_prefix(size + 1);
  }
}

/// The same for a text in place of what the cursor selects: it joins the lines at both ends.
void RequireThatItFits(const String& text, const QTextCursor& place) {
  const QTextDocument& document = *place.document();
  const QTextBlock first = document.findBlock(place.selectionStart()), last = document.findBlock(place.selectionEnd());
  const QString before = first.text().first(place.selectionStart() - first.position());
  const QString after = last.text().sliced(place.selectionEnd() - last.position());
  const String joined = RuntimeAddString(RuntimeAddString(FromQString(before), text), FromQString(after));
  const int replaced = last.blockNumber() - first.blockNumber();
  RequireThatItFits(joined.Bytes(), document.blockCount() - 1 - replaced, replaced);
}

/// The text, as it came; an empty one if it did not arrive in time.
QString TextOf(const QMimeData& mime) {
  if (mime.hasFormat("text/plain")) return mime.text();
  return ToQString(mime.data(kUtf8Text).toStdString());
}

/// A copy of what an accepted drop brings: a file goes before text. Null if it did not arrive.
Ref<DragItem> ItemOf(const QMimeData& mime) {
  const QString file = LocalFile(mime.urls().value(0));
  if (!file.isEmpty()) return New<DragItem>(New<FolderItem>(QFileInfo(file).filesystemFilePath()));
  const String text = FromQString(TextOf(mime));
  return LenB(text) == 0 ? nullptr : New<DragItem>(text);
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
  QString raw = document()->toRawText();
  return FromQString(WithLineFeeds(raw.insert(loader_.Place(), ToQString(loader_.Rest()))));
}

void TextField::SetText(const String& text) {
  const String lines = WithEndOfLines(text);
  RequireThatItFits(lines.Bytes(), 0, 0);
  loader_.Load(lines);
  unedited_ = lines;
  events_.textChanged();
}

bool TextField::IsEmpty() const { return document()->isEmpty() && IsWhole(); }

void TextField::TextWasChanged() {
  if (loader_.IsFilling()) return;
  unedited_.reset();
  events_.textChanged();
}

// Satellites have upper-case names, so Shift is often still held. The line separator that Qt would type looks like the
// end of a line, and is none.
void TextField::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::InsertLineSeparator)) return QPlainTextEdit::keyPressEvent(event);
  QKeyEvent plain(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
  QPlainTextEdit::keyPressEvent(&plain);
}

// ---- The clipboard, and drags of a selection

// Some programs take text without the name of an encoding for that of their own.
QMimeData* TextField::createMimeDataFromSelection() const {
  const QString text = WithLineFeeds(textCursor().selectedText());
  auto* mime = new QMimeData;
  mime->setText(text);
  mime->setData(kUtf8Text, text.toUtf8());
  return mime;
}

bool TextField::HasText(const QMimeData* mime) {
  return mime != nullptr && (mime->hasFormat("text/plain") || mime->hasFormat(kUtf8Text));
}

void TextField::insertFromMimeData(const QMimeData* mime) {
  if (!HasText(mime)) return;
  loader_.WhenWhole([this, text = TextOf(*mime)] {
    const std::optional<String> lines = Admit(text, textCursor());
    if (!lines) return;
    loader_.Insert(*lines);
    TextWasChanged();
  });
}

std::optional<String> TextField::Admit(const QString& text, const QTextCursor& place) {
  if (text.isEmpty()) return std::nullopt;
  try {
    const String lines = WithEndOfLines(FromQString(text));
    RequireThatItFits(lines, place);
    return lines;
  } catch (const std::exception&) {
    // Qt's functions that lead here, such as those of its menus, do not survive an exception.
    const auto raise = [error = std::current_exception()] { std::rethrow_exception(error); };
    QMetaObject::invokeMethod(this, raise, Qt::QueuedConnection);
    return std::nullopt;
  }
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
  if (IsOwnDrag(*event)) {
    // Qt takes the selection away from where it was before it comes here, so what cannot come is refused before that.
    if (!Admit(TextOf(*event->mimeData()), cursorForPosition(event->position().toPoint()))) return event->ignore();
    return QPlainTextEdit::dropEvent(event);
  }
  Judge(event);
  if (!event->isAccepted()) return;
  const Ref<DragItem> item = ItemOf(*event->mimeData());
  if (!item) return event->ignore();
  // The source waits until this returns, so the handler, which may have to show an alert, comes later.
  const auto handle = [this, item] { events_.dropped(item); };
  QMetaObject::invokeMethod(this, handle, Qt::QueuedConnection);
}

}  // namespace celestrix
