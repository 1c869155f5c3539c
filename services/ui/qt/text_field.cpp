#include "services/ui/qt/text_field.h"

#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethod>
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
constexpr std::uint64_t kLongestLine = 1'000'000;
constexpr std::uint64_t kCostOfOther = 100;
constexpr unsigned char kFirstByteOfOther = 0xCC;

constexpr char kPlainText[] = "text/plain", kUtf8Text[] = "text/plain;charset=utf-8";

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
std::uint64_t CostOf(std::string_view line) {
  std::uint64_t cost = 0;
  for (const char c : line) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0) != 0x80) cost += byte >= kFirstByteOfOther ? kCostOfOther : 1;
  }
  return cost;
}

/// Raises RuntimeException if it would take Qt unbearably long to show the text together with that many other lines,
/// and std::bad_alloc if there is not enough memory to replace that many lines with it.
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

/// The same for a text that is to replace the cursor's selection, and so joins the lines at both ends.
void RequireThatItFits(const String& text, const QTextCursor& place) {
  const QTextDocument& document = *place.document();
  const QTextBlock first = document.findBlock(place.selectionStart()), last = document.findBlock(place.selectionEnd());
  const QString before = first.text().first(place.selectionStart() - first.position());
  const QString after = last.text().sliced(place.selectionEnd() - last.position());
  const String joined = RuntimeAddString(RuntimeAddString(FromQString(before), text), FromQString(after));
  const int replaced = last.blockNumber() - first.blockNumber();
  RequireThatItFits(joined.Bytes(), document.blockCount() - 1 - replaced, replaced);
}

/// The format in which to fetch the text; "" if there is none. The formats are asked for once, and the text in one of
/// them: each question to a program that hangs takes five seconds.
QString TextFormatOf(const QMimeData& mime) {
  const QStringList formats = mime.formats();
  for (const char* format : {kUtf8Text, kPlainText})
    if (formats.contains(QLatin1String(format))) return QLatin1String(format);
  return {};
}

/// The text, as it came; an empty one if it did not arrive in time.
QString TextOf(const QMimeData& mime) {
  const QString format = TextFormatOf(mime);
  if (format == QLatin1String(kUtf8Text)) return ToQString(mime.data(format).toStdString());
  return format.isEmpty() ? format : mime.text();
}

/// A copy of what is dropped, as a file if it is one, otherwise as text. Null if it did not arrive.
Ref<DragItem> ItemOf(const QMimeData& mime) {
  const std::filesystem::path file = LocalFile(mime.urls().value(0));
  if (!file.empty()) return New<DragItem>(New<FolderItem>(file));
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

String TextField::Text() const {
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

void TextField::EndComposition() {
  QGuiApplication::inputMethod()->commit();
  QGuiApplication::inputMethod()->reset();  // some input methods commit only here
}

void TextField::Settle() {
  EndComposition();
  loader_.Finish();
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

bool TextField::HasText(const QMimeData* mime) { return mime != nullptr && !TextFormatOf(*mime).isEmpty(); }

void TextField::insertFromMimeData(const QMimeData* mime) {
  Settle();
  const String lines = Admit(*mime, textCursor());
  if (LenB(lines) == 0) return;
  loader_.Insert(lines);
  TextWasChanged();
}

String TextField::Admit(const QMimeData& mime, const QTextCursor& place) {
  try {
    String lines = WithEndOfLines(FromQString(TextOf(mime)));
    RequireThatItFits(lines, place);
    return lines;
  } catch (const std::exception&) {
    // The functions of Qt that lead here, such as those of its menus, are not safe against exceptions.
    const auto raise = [error = std::current_exception()] { std::rethrow_exception(error); };
    QMetaObject::invokeMethod(this, raise, Qt::QueuedConnection);
    return {};
  }
}

// ---- Drops. Qt handles drags of the field's own selection, which come from its viewport.

/// Accepts or refuses a drop, or a drag that may become one. What is accepted is copied.
void TextField::Judge(QDropEvent* event) const {
  const QMimeData& mime = *event->mimeData();
  const QUrl address = mime.urls().value(0);
  // The address of a page is a text. Any other is taken for that of a file, which may be out of reach from here.
  const bool isText = address.isEmpty() || address.scheme().startsWith(QLatin1String("http"));
  const std::u8string file = LocalFile(address).u8string();
  const bool fits =
      isText ? acceptsText_ && HasText(&mime)
             : !acceptedExtension_.isEmpty() &&
                   QString::fromUtf8(file.data(), std::ssize(file)).endsWith(acceptedExtension_, Qt::CaseInsensitive);
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(fits && event->possibleActions().testFlag(Qt::CopyAction));
}

// Drops on the scroll bar or the frame come here; those on the viewport go straight to it.
bool TextField::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
      return viewportEvent(event);
    default:
      return QPlainTextEdit::event(event);
  }
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
  if (event->source() == viewport()) return DropSelection(event);
  Judge(event);
  if (!event->isAccepted()) return;
  const Ref<DragItem> item = ItemOf(*event->mimeData());
  if (!item) return event->ignore();
  // The source waits until this returns, so the handler, which may show an alert, runs later.
  const auto handle = [this, item] { onDrop(item); };
  QMetaObject::invokeMethod(this, handle, Qt::QueuedConnection);
}

/// Qt removes the selection from its old place before it inserts it here, so what does not fit is refused first.
void TextField::DropSelection(QDropEvent* event) {
  Settle();
  const String lines = Admit(*event->mimeData(), cursorForPosition(event->position().toPoint()));
  if (LenB(lines) != 0) return QPlainTextEdit::dropEvent(event);
  QDragLeaveEvent end;
  dragLeaveEvent(&end);  // or Qt would go on showing where the selection is to be dropped
  event->ignore();
}

}  // namespace celestrix
