#include "services/ui/qt/text_field.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QTextBlock>
#include <QUrl>
#include <algorithm>

#include "services/ui/qt/local_file.h"

namespace celestrix {

namespace {

// 1.4 million sets, for which Qt needs up to 2 GB of memory.
constexpr int kMostLineEnds = 1 << 22;
// In a line of a million plain characters, Qt needs some 0.5 s for each key. Characters beyond U+02FF, whose first byte
// is this one or a greater one, may take a hundred times as long.
constexpr std::size_t kLongestLine = 1'000'000;
constexpr std::ptrdiff_t kCostOfOther = 100;
constexpr unsigned char kFirstByteOfOther = 0xCC;

constexpr char kUtf8Text[] = "text/plain;charset=utf-8";

/// The text with EndOfLine wherever the field would end a line. Qt also ends lines at a paragraph separator and at two
/// non-characters.
String WithEndOfLines(const String& text) {
  String lines = ReplaceLineEndings(text, EndOfLine());
  for (const String& lineEnd : {"\u2029"_s, "\uFDD0"_s, "\uFDD1"_s}) lines = ReplaceAll(lines, lineEnd, EndOfLine());
  return lines;
}

/// Qt's raw text, in which lines are separated by paragraph separators, with line feeds instead.
QString WithLineFeeds(QString raw) { return raw.replace(QChar::ParagraphSeparator, QChar::LineFeed); }

/// The number of plain characters that take Qt as long as this line.
std::size_t CostOf(std::string_view line) {
  const auto isFirst = [](unsigned char byte) { return (byte & 0xC0) != 0x80; };
  const auto isFirstOfOther = [](unsigned char byte) { return byte >= kFirstByteOfOther; };
  return static_cast<std::size_t>(std::ranges::count_if(line, isFirst) +
                                  (kCostOfOther - 1) * std::ranges::count_if(line, isFirstOfOther));
}

/// Raises RuntimeException if it would take Qt unbearably long to show the text together with that many other lines,
/// and std::bad_alloc if there is not enough memory to replace that many lines by it.
void RequireThatItFits(std::string_view text, int otherLines, int replacedLines) {
  const std::size_t bytes = text.size();
  for (int lineEnds = 0;; ++lineEnds) {
    if (lineEnds > kMostLineEnds - otherLines)
      throw RuntimeException("The text has more lines than the field can hold.");
    const std::size_t size = std::min(text.find('\n'), text.size());
    // Few lines have this many bytes, and only their characters need counting.
    if (size > kLongestLine / kCostOfOther && CostOf(text.substr(0, size)) > kLongestLine)
      throw RuntimeException("The text has a line that is longer than the field can hold.");
    if (size == text.size()) return TextLoader::RequireRoom(lineEnds + replacedLines, bytes);
    text.remove_prefix(size + 1);
  }
}

/// The same for a text that is to replace what the cursor selects: it joins the lines at both ends.
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

/// A copy of what is dropped, as a file if it is one, otherwise as text. Null if it did not arrive.
Ref<DragItem> ItemOf(const QMimeData& mime) {
  const QString file = LocalFile(mime.urls().value(0));
  if (!file.isEmpty()) return New<DragItem>(New<FolderItem>(QFileInfo(file).filesystemFilePath()));
  const String text = FromQString(TextOf(mime));
  return LenB(text) == 0 ? nullptr : New<DragItem>(text);
}

}  // namespace

TextField::TextField(QWidget* parent) : QPlainTextEdit(parent) {
  setTabChangesFocus(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWordWrapMode(QTextOption::WrapAnywhere);  // wrapping at words takes time quadratic in a line's length
  connect(this, &QPlainTextEdit::textChanged, this, &TextField::TextWasChanged);
}

// ---- The text

String TextField::Text() {
  loader_.AwaitWaiting();  // what the user has typed or pasted before this call belongs to the text
  if (unedited_) return *unedited_;
  QString raw = document()->toRawText();
  raw.insert(loader_.Place(), ToQString(loader_.Rest()));
  return FromQString(WithLineFeeds(std::move(raw)));  // moved: with a copy it takes 1.5 times as long
}

void TextField::SetText(const String& text) {
  const String lines = WithEndOfLines(text);
  RequireThatItFits(lines.Bytes(), 0, 0);
  loader_.Load(lines);
  unedited_ = lines;
  onTextChanged();
}

bool TextField::IsEmpty() const { return document()->isEmpty() && IsWhole(); }

void TextField::TextWasChanged() {
  if (loader_.IsFilling()) return;
  unedited_.reset();
  onTextChanged();
}

// Satellites have upper-case names, so Shift is often still held at Return. The line separator that Qt would insert
// then looks like the end of a line, but is not one.
void TextField::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::InsertLineSeparator)) return QPlainTextEdit::keyPressEvent(event);
  QKeyEvent plain(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
  QPlainTextEdit::keyPressEvent(&plain);
}

// ---- The clipboard, and drags of a selection

// Some programs assume an encoding of their own for text that names none.
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
  loader_.WhenWhole([this, text = TextOf(*mime)] {
    const String lines = Admit(text, textCursor());
    if (LenB(lines) == 0) return;
    loader_.Insert(lines);
    TextWasChanged();
  });
}

String TextField::Admit(const QString& text, const QTextCursor& place) {
  try {
    String lines = WithEndOfLines(FromQString(text));
    RequireThatItFits(lines, place);
    return lines;
  } catch (const std::exception&) {
    // The functions of Qt that lead here, such as those of its menus, are not safe against exceptions.
    const auto raise = [error = std::current_exception()] { std::rethrow_exception(error); };
    QMetaObject::invokeMethod(this, raise, Qt::QueuedConnection);
    return {};
  }
}

// ---- Drops. Drags of the field's own selection are Qt's matter: they come from its viewport.

/// Accepts or refuses a drop, or a drag that may become one. What is accepted is copied.
void TextField::Judge(QDropEvent* event) const {
  const QMimeData& mime = *event->mimeData();
  const QString file = LocalFile(mime.urls().value(0));
  const bool fits = file.isEmpty()
                        ? acceptsText_ && HasText(&mime)
                        : !acceptedExtension_.isEmpty() && file.endsWith(acceptedExtension_, Qt::CaseInsensitive);
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(fits && event->possibleActions().testFlag(Qt::CopyAction));
}

void TextField::dragEnterEvent(QDragEnterEvent* event) {
  if (event->source() == viewport()) return QPlainTextEdit::dragEnterEvent(event);
  Judge(event);
}

void TextField::dragMoveEvent(QDragMoveEvent* event) {
  if (event->source() == viewport()) return QPlainTextEdit::dragMoveEvent(event);
  Judge(event);
}

void TextField::dropEvent(QDropEvent* event) {
  if (event->source() == viewport()) {
    // Qt removes the selection from its old place before it inserts it here, so what does not fit is refused first.
    const String lines = Admit(TextOf(*event->mimeData()), cursorForPosition(event->position().toPoint()));
    if (LenB(lines) == 0) return event->ignore();
    return QPlainTextEdit::dropEvent(event);
  }
  Judge(event);
  if (!event->isAccepted()) return;
  const Ref<DragItem> item = ItemOf(*event->mimeData());
  if (!item) return event->ignore();
  // The source waits until this returns, so the handler, which may show an alert, runs later.
  const auto handle = [this, item] { onDrop(item); };
  QMetaObject::invokeMethod(this, handle, Qt::QueuedConnection);
}

}  // namespace celestrix
