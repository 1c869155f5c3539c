// TextField: Qt's text field, made exact.
//
// Qt's own way to hand out plain text turns no-break spaces into spaces and several other characters into
// line feeds. The field keeps the text that the program gave it and hands that out until the user edits it, which also
// spares reading a long document; from then on it reads the document raw. Both are the same text: what Qt would
// take for the end of a line is one EndOfLine from the start.
//
// How a long text gets into it: text_loader.h.
#pragma once

#include <QMimeData>
#include <QPlainTextEdit>
#include <optional>

#include "services/base/file_type.h"
#include "services/ui/drag_item.h"
#include "services/ui/qt/text_loader.h"

namespace celestrix {

class TextField final : public QPlainTextEdit {
 public:
  struct Events {
    std::function<void()> textChanged;
    std::function<void(const Ref<DragItem>&)> dropped;
  };

  TextField(QWidget* parent, Events events);

  String Text();
  void SetText(const String& text);
  bool IsEmpty() const;

  /// Whether there is text in it. A look at its formats: to fetch the text from the program that has it may take long.
  /// (Qt also calls addresses text, of which it then may have none to give.)
  static bool HasText(const QMimeData* mime);

  /// Whether the field shows all of its text.
  bool IsWhole() const { return loader_.IsWhole(); }
  /// Does it now, or when the field is whole.
  void WhenWhole(std::function<void()> action) { loader_.WhenWhole(std::move(action)); }

  void AcceptFiles(const FileType& type) { acceptedFiles_ = &type; }
  void AcceptText() { acceptsText_ = true; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  QMimeData* createMimeDataFromSelection() const override;
  bool canInsertFromMimeData(const QMimeData* mime) const override { return HasText(mime); }
  void insertFromMimeData(const QMimeData* mime) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void TextWasChanged();
  /// The lines of a text that can come in place of what the cursor selects; none for an empty one, which is how Qt
  /// says that it did not arrive. One that does not fit is said to the user when this has returned.
  std::optional<String> Admit(const QString& text, const QTextCursor& place);
  bool IsOwnDrag(const QDropEvent& event) const;
  void Judge(QDropEvent* event) const;

  Events events_;
  TextLoader loader_{*this};
  std::optional<String> unedited_;  // the text as it was set, until it is edited
  const FileType* acceptedFiles_ = nullptr;
  bool acceptsText_ = false;
};

}  // namespace celestrix
