// A user who does everything in any order, and a twin: a plain field of Qt that gets the same keys, clicks, commands
// and texts. After each action the window must agree with the twin.
//
// The order comes from a seed. CELESTRIX_SEED repeats a run.
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
  }

  void agreesWithItsTwinWhateverTheUserDoes() {
    using Self = TestRestlessUser;
    const struct {
      const char* name;
      void (Self::*run)();
    } deeds[] = {{"types", &Self::Types},        {"moves the cursor", &Self::Moves},
                 {"clicks", &Self::Clicks},      {"undoes or redoes", &Self::UndoesOrRedoes},
                 {"pastes", &Self::Pastes},      {"chooses from the menu", &Self::ChoosesFromMenu},
                 {"drops a text", &Self::Drops}, {"browses", &Self::Browses},
                 {"saves", &Self::Saves},        {"cancels a logout", &Self::CancelsLogout}};
    const int seed = qEnvironmentVariable("CELESTRIX_SEED", "20261121").toInt();
    random_.seed(seed);
    QStringList done;
    for (int number = 1; number <= 500; ++number) {
      const auto& deed = deeds[Any(std::size(deeds))];
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
    w_.Command("FileQuit")->trigger();
    QCOMPARE(ReadFile(PreferencesPath()), "1\n");
  }

 private:
  // ---- What must hold

  void CompareWithTwin() {
    ExpectNone("text", TextDifference(w_.Text(), TwinText()));
    if (w_.IsWhole()) {
      Expect("cursor", w_.txt->textCursor().position(), twin_.textCursor().position());
      Expect("start of the selection", w_.txt->textCursor().anchor(), twin_.textCursor().anchor());
    }
    Expect("undo", w_.txt->document()->isUndoAvailable(), twin_.document()->isUndoAvailable());
    Expect("redo", w_.txt->document()->isRedoAvailable(), twin_.document()->isRedoAvailable());
    Expect("button Save...", w_.save->isEnabled(), !twin_.document()->isEmpty());
    Expect("choice of Palm", w_.palm->isChecked(), palm_);
    ExpectNone("clipboard", TextDifference(QGuiApplication::clipboard()->text(), clipboard_));
  }

  void Expect(const QString& what, const QVariant& is, const QVariant& shallBe) {
    ExpectNone(what, is == shallBe ? "" : is.toString() + ", expected " + shallBe.toString());
  }
  /// Notes the first promise that is broken, and where.
  void ExpectNone(const QString& what, const QString& difference) {
    if (broken_.isEmpty() && !difference.isEmpty()) broken_ = "broke the promise about the " + what + ": " + difference;
  }

  static QString WithLineFeeds(QString text) { return text.replace(QChar::ParagraphSeparator, '\n'); }
  QString TwinText() { return WithLineFeeds(twin_.document()->toRawText()); }

  // ---- What is done

  int Any(std::size_t below) { return random_.bounded(static_cast<int>(below)); }
  Qt::KeyboardModifiers AnyShift() { return Any(2) == 0 ? Qt::ShiftModifier : Qt::NoModifier; }

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

  void Moves() {
    const Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    const Qt::KeyboardModifiers shift = AnyShift();
    Press(keys[Any(6)], Any(3) == 0 ? shift | Qt::ControlModifier : shift);
  }

  void Clicks() {
    const QPoint at(Any(400), Any(200));
    const Qt::KeyboardModifiers shift = AnyShift();
    // Where a text comes in, a click means what is shown, and the twin has scrolled to the text's end already.
    if (!w_.IsWhole()) return;
    QTest::mouseClick(w_.txt->viewport(), Qt::LeftButton, shift, at);
    QTest::mouseClick(twin_.viewport(), Qt::LeftButton, shift, at);
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
    CopyElsewhere(clipboard_ = "pasted" + AnyText());
    QTest::keyClick(w_.txt, Qt::Key_V, Qt::ControlModifier);
    TwinPastes();
    if (Any(2) == 0) Types();
  }

  void ChoosesFromMenu() {
    const QString selected = WithLineFeeds(twin_.textCursor().selectedText());
    const bool canUndo = twin_.document()->isUndoAvailable(), hasSelection = !selected.isEmpty();
    const auto copies = [&] { clipboard_ = selected; };
    const auto removes = [&] { twin_.textCursor().removeSelectedText(); };
    const struct {
      const char* name;
      bool applies;
      std::function<void()> twinDoes;
    } items[] = {{"EditUndo", canUndo, [&] { twin_.undo(); }},
                 {"EditCut", hasSelection, [&] { copies(), removes(); }},
                 {"EditCopy", hasSelection, copies},
                 {"EditPaste", !clipboard_.isEmpty(), [&] { TwinPastes(); }},
                 {"EditClear", hasSelection, removes},
                 {"EditSelectAll", !twin_.document()->isEmpty(), [&] { twin_.selectAll(); }}};
    const auto& item = items[Any(std::size(items))];
    w_.Activate();
    w_.txt->setFocus();
    QAction* command = w_.Command(item.name);
    if (w_.IsWhole()) Expect(item.name, command->isEnabled(), item.applies);
    command->trigger();
    if (item.applies) item.twinDoes();
  }

  void Drops() {
    const QString text = AnyText();
    if (text.isEmpty()) return;
    w_.Fill(text);
    twin_.setPlainText(text);
  }

  void Browses() {
    const QByteArray file = AnyText().toUtf8();
    w_.Click(w_.browse, WriteFile(folder_.filePath("brought.txt"), file));
    twin_.setPlainText(model::TextOfFile(file));
  }

  void Saves() {
    if (Any(4) == 0) Drops();  // which may load still
    if (twin_.document()->isEmpty()) return;
    palm_ = Any(2) == 0;
    TestedWindow::Choose(palm_ ? w_.palm : w_.pocket);
    const QString path = folder_.filePath("saved");
    w_.Click(w_.save, path);
    ExpectNone("saved file", Difference(ReadFile(path), model::SavedFile(TwinText(), palm_)));
  }

  /// Of a logout that is cancelled, the program hears only the announcement. The choice is written at its end.
  void CancelsLogout() {
    emit qApp->commitDataRequest(*qApp->findChild<QSessionManager*>());
    ExpectNone("logout that is cancelled",
               w_.frame->isVisible() && !QFile::exists(PreferencesPath()) ? "" : "it closes the window");
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
