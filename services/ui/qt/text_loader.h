// TextLoader: brings a long text into a field without stopping the window.
//
// The toolkit needs about five microseconds for a line, so a long text would stop the window for seconds. The loader
// shows the first slice at once and adds the others between events. Until the field is whole, keys and menu commands
// wait, in their order, so that all of them act on the whole text; clicks are ignored, as what they would hit is about
// to move. What does not touch the text (scrolling, resizing, leaving the field) goes on.
//
// Whoever changes the document itself meanwhile (an accessibility client can) changes what is shown, and the rest
// follows behind it.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <vector>

#include "services/base/string.h"

class QPlainTextEdit;

namespace celestrix {

class TextLoader final : public QObject {
 public:
  /// For a field that outlives the loader.
  explicit TextLoader(QPlainTextEdit& field);

  /// Replaces the field's text. What waits is forgotten: it was meant for the text before. Where there is no memory to
  /// begin with it, this raises std::bad_alloc, and the field keeps its text. Where it runs out later, the event that
  /// adds the slice raises it. The field then shows the beginning of the text, and the rest is kept: the next key or
  /// command tries to go on.
  void Load(const String& text);

  bool IsWhole() const { return LenB(rest_) == 0; }
  /// The end of the text, which the field does not hold yet.
  const String& Rest() const { return rest_; }
  /// Whether it is the loader that changes the document at the moment, and nobody else.
  bool IsFilling() const { return filling_; }

  /// Does it now, or, behind what waits already, when the field is whole.
  void WhenWhole(std::function<void()> action);
  /// Lets the event loop go on until nothing waits any more.
  void AwaitWaiting() const;

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;
  void timerEvent(QTimerEvent* /*event*/) override { AddSlice(); }

 private:
  QString TakeSlice();
  void AddSlice();

  QPlainTextEdit& field_;
  String rest_;  // of the text; begins with a line
  bool filling_ = false;
  bool pressIsIgnored_ = false;  // until its release
  QBasicTimer betweenEvents_;
  std::vector<std::function<void()>> waiting_;
};

}  // namespace celestrix
