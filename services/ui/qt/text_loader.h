// TextLoader: brings a long text into a field without stopping the window.
//
// Qt needs one to five microseconds for a line, so a long text would stop the window for seconds. The loader shows
// the first slice at once and adds the others between events. The longest stop in milliseconds, without and with the
// loader, the least of several runs:
//              10,000 sets    30,000 sets    300,000 sets
//   a load      41 and 4      143 and 8      1,960 and 30
//   a paste     78 and 4      283 and 7      4,200 and 46
// If the user touches the field meanwhile (a key, a click, a menu, a command, a drag), the rest goes in at once, before
// anything else. Only then does the window stop for as long as with Qt's own field. What does not touch the text
// (scrolling, resizing, leaving the field) goes on.
//
// If something else edits the document while it loads (an accessibility client can), the rest still goes to its place,
// but then undoing takes more than one step.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QTextCursor>

#include "services/base/string.h"

class QPlainTextEdit;

namespace celestrix {

class TextLoader final : public QObject {
 public:
  /// For a field that outlives the loader.
  explicit TextLoader(QPlainTextEdit& field);

  /// Raises std::bad_alloc if there is no memory for that many lines, including those that are replaced, and that many
  /// bytes of text. Qt does not survive running out of memory, so call this before anything is changed; then no slice
  /// fails. Measured at the peak, just after Qt's arrays have doubled: 200 bytes for a loaded line, 310 for a pasted
  /// one with its undo, 130 more for a replaced one, and 4 for each character.
  static void RequireRoom(int lines, std::size_t bytes);

  /// Replaces the field's text, which cannot be undone.
  void Load(const String& text);
  /// Replaces the selection by the text, as one step of undo, and puts the cursor after it. The field must be whole.
  void Insert(const String& text);
  /// Brings in the rest of the text at once. The loader itself does this before the field gets an event that touches
  /// it; call it before anything else does.
  void Finish();

  bool IsWhole() const { return LenB(rest_) == 0; }
  /// The part of the text that the field does not hold yet, and where it will be inserted.
  const String& Rest() const { return rest_; }
  int Place() const { return place_.position(); }
  /// Whether the document is being changed by the loader at the moment.
  bool IsFilling() const { return filling_; }

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  enum Amount { kSlice, kAll };

  QString TakeSlice();
  void Begin(const String& text, const QTextCursor& place);
  void Add(Amount amount);

  QPlainTextEdit& field_;
  String rest_;        // of the text
  QTextCursor place_;  // where it goes
  bool filling_ = false;
  QBasicTimer betweenEvents_;
};

}  // namespace celestrix
