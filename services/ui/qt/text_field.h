// TextField: Qt's text field, made exact.
//
// Qt's toPlainText turns no-break spaces into spaces and several other characters into line feeds. The field keeps the
// text that the program gave it and returns that until the user edits it, which also saves reading a long document;
// from then on it reads the document raw. Both are the same text: whatever Qt would treat as the end of a line is
// one EndOfLine from the start.
//
// text_loader.h says how a long text gets into it.
#pragma once

#include <QMimeData>
#include <QPlainTextEdit>
#include <optional>

#include "services/ui/drag_item.h"
#include "services/ui/qt/strings.h"
#include "services/ui/qt/text_loader.h"

namespace celestrix {

class TextField final : public QPlainTextEdit {
 public:
  explicit TextField(QWidget* parent);

  // Both must be set.
  std::function<void()> onTextChanged;               // called whenever the text has changed
  std::function<void(const Ref<DragItem>&)> onDrop;  // called, soon after, for each drop from outside that is accepted

  String Text() const;
  void SetText(const String& text);
  bool IsEmpty() const;

  /// Whether it has text, according to its formats: fetching the text from the program that owns it may take long.
  /// (Qt's own hasText counts addresses as text, and may then return none.)
  static bool HasText(const QMimeData* mime);

  /// Makes what is being composed with an input method, in whichever field has the focus, part of its text.
  static void EndComposition();
  /// Whether the field shows all of its text.
  bool IsWhole() const { return loader_.IsWhole(); }
  /// Ends the composition, and brings in the rest of a text. To be called before a command acts on the field.
  void Settle();

  /// Lets the field accept files with that extension, in upper or lower case.
  void AcceptFiles(const String& extension) { acceptedExtension_ = ToQString(extension); }
  void AcceptText() { acceptsText_ = true; }

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  QMimeData* createMimeDataFromSelection() const override;
  bool canInsertFromMimeData(const QMimeData* mime) const override { return HasText(mime); }
  void insertFromMimeData(const QMimeData* mime) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void TextWasChanged();
  /// The text with EndOfLine between its lines, if it can replace what the cursor selects. Empty if the text did not
  /// arrive (Qt then gives an empty one), or if it does not fit; an alert then says so later.
  String Admit(const QMimeData& mime, const QTextCursor& place);
  void Judge(QDropEvent* event) const;
  void DropSelection(QDropEvent* event);

  TextLoader loader_{*this};
  std::optional<String> unedited_;  // the text as it was set, until it is edited
  QString acceptedExtension_;       // empty: no files
  bool acceptsText_ = false;
};

}  // namespace celestrix
