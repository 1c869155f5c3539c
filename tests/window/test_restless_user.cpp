// A user who does everything in any order, and a twin: a bare field of Qt that gets the same keys, clicks, commands and
// texts. After each deed the window must be as the twin says.
//
// The order comes from a seed. CELESTRIX_SEED repeats a run, CELESTRIX_DEEDS makes it longer.
#include "tests/window/fixture.h"

class TestRestlessUser : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    twin_.setFont(w_.txt->font());
    twin_.setWordWrapMode(QTextOption::WrapAnywhere);
    twin_.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    twin_.resize(w_.txt->size());
    twin_.setAttribute(Qt::WA_DontShowOnScreen);  // it must not become the active window
    twin_.show();
    w_.Choose(w_.palm);
  }

  void doesAsHePleases() {
    using Self = TestRestlessUser;
    const Deed deeds[] = {{"types", &Self::Types},
                          {"moves the cursor", &Self::Moves},
                          {"clicks", &Self::Clicks},
                          {"undoes or redoes", &Self::UndoesOrRedoes},
                          {"pastes", &Self::Pastes},
                          {"chooses from the menu", &Self::ChoosesFromMenu},
                          {"drops a text", &Self::Drops},
                          {"browses", &Self::Browses},
                          {"edits while a text loads", &Self::EditsWhileTextLoads},
                          {"saves", &Self::Saves}};
    const int seed = qEnvironmentVariable("CELESTRIX_SEED", "20261121").toInt();
    const int last = qEnvironmentVariable("CELESTRIX_DEEDS", "500").toInt();
    random_.seed(seed);
    QStringList done;
    for (int number = 1; number <= last; ++number) {
      const Deed& deed = deeds[Any(std::size(deeds))];
      done += QString("\n  deed %1: %2").arg(number).arg(deed.name);
      (this->*deed.run)();
      if (Any(4) != 0) QCoreApplication::processEvents();
      CompareWithTwin();
      if (!broken_.isEmpty())
        QFAIL(qPrintable(QString("seed %1:%2\n%3").arg(seed).arg(done.mid(number - 6).join(""), broken_)));
    }
  }

  void quitsThroughTheMenu() {
    TestedWindow::Choose(w_.pocket);
    w_.inDialog = [this] { w_.Command("FileQuit")->trigger(); };
    w_.Click(w_.browse, "");
    QCOMPARE(ReadFile(PreferencesPath()), "1\n");
  }

 private:
  struct Deed {
    const char* name;
    void (TestRestlessUser::*run)();
  };

  // ---- What must hold

  void CompareWithTwin() {
    Expect("text", w_.Text(), TwinText());
    if (w_.IsWhole()) Expect("cursor", At(w_.txt->textCursor()), At(twin_.textCursor()));
    Expect("undo", Possible(w_.txt->document()->isUndoAvailable()), Possible(twin_.document()->isUndoAvailable()));
    Expect("redo", Possible(w_.txt->document()->isRedoAvailable()), Possible(twin_.document()->isRedoAvailable()));
    Expect("button Save...", Possible(w_.save->isEnabled()), Possible(!twin_.document()->isEmpty()));
    Expect("choice", w_.palm->isChecked() ? "Palm" : "Pocket PC", palm_ ? "Palm" : "Pocket PC");
    Expect("clipboard", QGuiApplication::clipboard()->text(), clipboard_);
  }

  /// Notes the first promise that is broken, and where.
  void Expect(const QString& what, const QString& actual, const QString& expected) {
    if (actual == expected || !broken_.isEmpty()) return;
    const auto at = std::ranges::mismatch(actual, expected).in1 - actual.begin(), from = qMax(at - 20, 0);
    QDebug(&broken_) << qPrintable("broke the promise about the " + what + ": from character") << at
                     << "on it differs; there is" << actual.mid(from, 60) << "instead of" << expected.mid(from, 60);
  }

  static QString Possible(bool is) { return is ? "possible" : "not possible"; }
  static QString At(const QTextCursor& cursor) {
    return QString("%1 to %2").arg(cursor.anchor()).arg(cursor.position());
  }
  static QString WithLineFeeds(QString text) { return text.replace(QChar::ParagraphSeparator, '\n'); }
  QString TwinText() { return WithLineFeeds(twin_.document()->toRawText()); }

  // ---- What is done

  template <class Count>
  int Any(Count below) {
    return random_.bounded(static_cast<int>(below));
  }

  QString AnyText() {
    static const QStringList pieces =
        QStringLiteral("\n,\r\n,\r, ,\t,é,\u00A0,\u2028,\u2029,\uFDD0,\uFDD1,\uFDD2,\uFFFC,\U0001F6F0,\uFEFF,\0")
            .split(',');
    QString text = "";
    const int lines = Any(10) == 0 ? 5200 : Any(12);  // now and then one that takes three slices
    for (int line = 0; line < lines; ++line)
      text += QString(Any(75), QChar('A' + Any(26))) + pieces[Any(16)] + (Any(3) == 0 ? "" : "\n");
    return text;
  }

  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(w_.txt, key, modifiers);
    QTest::keyClick(&twin_, key, modifiers);
  }

  void Types() {
    const Qt::Key keys[] = {Qt::Key_X, Qt::Key_Return, Qt::Key_Space, Qt::Key_Backspace, Qt::Key_Delete};
    for (int presses = Any(8); presses > 0; --presses) Press(keys[Any(5)], {});
  }

  Qt::KeyboardModifiers AnyShift() { return Any(2) == 0 ? Qt::ShiftModifier : Qt::NoModifier; }

  void Moves() {
    const Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    const Qt::KeyboardModifiers shift = AnyShift();
    Press(keys[Any(6)], Any(3) == 0 ? shift | Qt::ControlModifier : shift);
  }

  void Clicks() {
    const QPoint at(Any(400), Any(200));
    const Qt::KeyboardModifiers shift = AnyShift();
    if (w_.IsWhole()) QTest::mouseClick(twin_.viewport(), Qt::LeftButton, shift, at);
    QTest::mouseClick(w_.txt->viewport(), Qt::LeftButton, shift, at);  // ignored while a text loads
  }

  void UndoesOrRedoes() {
    const Qt::KeyboardModifiers shift = AnyShift();
    for (int times = Any(4); times > 0; --times) Press(Qt::Key_Z, Qt::ControlModifier | shift);
  }

  /// As one step, whose undoing takes the cursor back too. (Qt's own paste leaves it somewhere else.)
  void TwinPastes() {
    QTextCursor place = twin_.textCursor();
    place.beginEditBlock();
    place.insertText(clipboard_);
    place.endEditBlock();
    twin_.ensureCursorVisible();
  }

  void Pastes() {
    QGuiApplication::clipboard()->setText(clipboard_ = "pasted" + AnyText());
    QTest::keyClick(w_.txt, Qt::Key_V, Qt::ControlModifier);
    TwinPastes();
    if (Any(2) == 0) Types();
  }

  void ChoosesFromMenu() {
    const QString selected = WithLineFeeds(twin_.textCursor().selectedText());
    const bool canUndo = twin_.document()->isUndoAvailable(), hasSelection = !selected.isEmpty();
    const auto copies = [&] { clipboard_ = hasSelection ? selected : clipboard_; };
    const auto removes = [&] { twin_.textCursor().removeSelectedText(); };
    const struct {
      const char* name;
      bool applies;
      std::function<void()> twinDoes;
    } items[] = {{"EditUndo", canUndo, [&] { twin_.undo(); }},
                 {"EditCut", hasSelection, [&] { copies(), removes(); }},
                 {"EditCopy", hasSelection, copies},
                 {"EditPaste", !clipboard_.isEmpty(), [&] { clipboard_.isEmpty() ? void() : TwinPastes(); }},
                 {"EditClear", hasSelection, removes},
                 {"EditSelectAll", !twin_.document()->isEmpty(), [&] { twin_.selectAll(); }}};
    const auto& item = items[Any(std::size(items))];
    w_.frame->activateWindow();  // after a dialog none is, on this platform
    QTRY_VERIFY(w_.frame->isActiveWindow());
    w_.txt->setFocus();
    QAction* const action = w_.Command(item.name);
    if (w_.IsWhole()) Expect(item.name, Possible(action->isEnabled()), Possible(item.applies));
    QTest::keyClick(w_.frame, Qt::Key_E, Qt::AltModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY2(menu != nullptr, "Alt+E opens no menu");
    menu->setActiveAction(action);
    QTest::keyClick(menu, Qt::Key_Return);
    menu->close();  // an item that is not enabled leaves it open
    w_.Text();      // while the clipboard holds what is pasted
    item.twinDoes();
  }

  void Drops() {
    const QString text = AnyText();
    if (text.isEmpty()) return;
    w_.Drop(text);
    twin_.setPlainText(text);
  }

  void Browses() {
    const QByteArray file = AnyText().toUtf8();
    const bool cancels = Any(4) == 0;
    w_.Click(w_.browse, cancels ? "" : WriteFile(folder_.filePath("brought.txt"), file));
    if (!cancels) twin_.setPlainText(model::TextOfFile(file));
  }

  /// As accessibility clients do, who do not wait. As long as a dropped text loads, that cannot be undone.
  void EditsWhileTextLoads() {
    if (Any(2) == 0) Drops();
    if (w_.IsWhole() || w_.txt->document()->isUndoRedoEnabled()) return;
    twin_.document()->setUndoRedoEnabled(false);
    for (QPlainTextEdit* field : {w_.txt, &twin_}) QTextCursor(field->document()).insertText("new");
    twin_.document()->setUndoRedoEnabled(true);
  }

  void Saves() {
    if (Any(4) == 0) Drops();  // which may load still
    if (twin_.document()->isEmpty() || Any(2) == 0) return;
    palm_ = Any(2) == 0;
    TestedWindow::Choose(palm_ ? w_.palm : w_.pocket);
    const QString path = folder_.filePath("saved");
    const auto changesItsMind = [this] {  // as accessibility clients do
      palm_ = !palm_;
      (palm_ ? w_.palm : w_.pocket)->setChecked(true);
    };
    if (Any(2) == 0) w_.inDialog = changesItsMind;
    w_.Click(w_.save, path);
    const QByteArray expected = model::SavedFile(TwinText(), palm_);
    Expect("saved file", QString::fromLatin1(ReadFile(path)), QString::fromLatin1(expected));
  }

  QRandomGenerator random_;
  QTemporaryDir folder_;
  TestedWindow w_;
  QPlainTextEdit twin_;
  bool palm_ = true;
  QString clipboard_;
  QString broken_;  // the first promise that was
};

int main(int argc, char** argv) { return RunTest<TestRestlessUser>(argc, argv); }
#include "test_restless_user.moc"
