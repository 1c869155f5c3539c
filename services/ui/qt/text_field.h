// TextField: the toolkit's text field, made exact and quick.
//
// Exact: the toolkit's own way to hand out plain text turns no-break spaces into spaces and several other
// characters into line feeds. The field keeps the text that the program gave it, and hands that out until the
// user edits it; from then on it reads the document raw.
//
// Quick: the toolkit needs about five microseconds for a line, so a long text would stop the window for
// seconds. The field shows the first slice at once and adds the rest between events. Until it is whole, what
// the user does to the text (keys, mouse, commands) waits, in order, so that all of it acts on the whole text.
// What does not touch the text (scrolling, resizing) goes on. A single line of megabytes stops the toolkit too,
// every time that it is drawn; so a very long line is shown in pieces (see kPieceEnd), of which neither
// Text nor the clipboard knows.
#pragma once

#include <QBasicTimer>
#include <QPlainTextEdit>
#include <functional>
#include <vector>

#include "services/base/file_type.h"
#include "services/base/string.h"
#include "services/ui/drag_item.h"

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
  bool IsEmpty() const { return rest_.empty() && document()->isEmpty(); }

  /// Does it now, or when the field shows all of its text.
  void WhenWhole(std::function<void()> action);

  void AcceptFiles(const RegisteredFileType& type) { acceptedFiles_ = &type; }
  void AcceptText() { acceptsText_ = true; }

 protected:
  QMimeData* createMimeDataFromSelection() const override;
  void insertFromMimeData(const QMimeData* mime) override;
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  bool IsWhole() const { return rest_.empty(); }
  QString TakeSlice();
  void AddSlice();
  void BecomeWhole();
  void DocumentChanges(int position, int removed, int added);
  void TextWasChanged();
  bool Postpone(QObject* receiver, QEvent* event);
  bool IsOwnDrag(const QDropEvent& event) const;
  bool Accepts(const QDropEvent& event) const;

  Events events_;
  String text_;            // as it was set; empty when it has been edited and is whole
  bool edited_ = false;    // by the user, since the text was set
  bool filling_ = false;   // while the field itself changes the document
  std::string_view rest_;  // the end of text_ that the document does not hold yet
  QBasicTimer betweenEvents_;
  std::vector<std::function<void()>> postponed_;
  const RegisteredFileType* acceptedFiles_ = nullptr;
  bool acceptsText_ = false;
};

}  // namespace celestrix
