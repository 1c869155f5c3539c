// A user who does everything in any order, and a twin: a bare field of the toolkit that gets the same keys,
// clicks, commands and texts. After each deed the window's field must hold what the twin holds.
//
// The order comes from a seed, which is printed; CELESTRIX_SEED repeats a run, CELESTRIX_DEEDS makes it longer.
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

  void doesAsHePleases() {
    const int seed = qEnvironmentVariable("CELESTRIX_SEED", "20261121").toInt();
    qInfo("seed %d", seed);
    random_.seed(seed);
    using Self = TestRestlessUser;
    void (Self::*const deeds[])() = {&Self::Types, &Self::Moves, &Self::ChoosesFromMenu, &Self::BringsText,
                                     &Self::Saves};
    for (int deed = qEnvironmentVariable("CELESTRIX_DEEDS", "500").toInt(); deed > 0; --deed) {
      (this->*deeds[Any(5)])();
      if (Any(4) != 0) QCoreApplication::processEvents();
      QCOMPARE(w_.Text(), TwinText());
      const QTextCursor cursor = w_.txt->textCursor(), expected = twin_.textCursor();
      QCOMPARE(std::pair(cursor.anchor(), cursor.position()), std::pair(expected.anchor(), expected.position()));
      QCOMPARE(w_.save->isEnabled(), !twin_.document()->isEmpty());
      if (QTest::currentTestFailed()) return;
    }
  }

  void quitsThroughTheMenu() {
    TestedWindow::Choose(w_.pocket);
    w_.inDialog = [this] { w_.Command("FileQuit")->trigger(); };
    w_.Click(w_.browse, "");
    QCOMPARE(ReadFile(PreferencesPath()), "1\n");
  }

 private:
  int Any(int below) { return random_.bounded(below); }

  QString AnyText() {
    static const QStringList pieces =
        QStringLiteral("\n,\r\n,\r, ,\t,é,\u00A0,\u2028,\u2029,\uFDD0,\uFDD1,\uFDD2,\uFFFC,\U0001F6F0,\uFEFF,\0")
            .split(',');
    QString text = "";
    const int lines = Any(12) == 0 ? 4000 : Any(12);  // now and then one that takes several slices
    for (int line = 0; line < lines; ++line)
      text += QString(Any(75), QChar('A' + Any(26))) + pieces[Any(16)] + (Any(3) == 0 ? "" : "\n");
    return text;
  }

  static QString WithLineFeeds(QString text) { return text.replace(QChar::ParagraphSeparator, '\n'); }
  QString TwinText() { return WithLineFeeds(twin_.document()->toRawText()); }

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
    const Qt::KeyboardModifiers shift = Any(2) == 0 ? Qt::ShiftModifier : Qt::NoModifier;
    if (Any(2) == 0) return Press(keys[Any(6)], Any(3) == 0 ? shift | Qt::ControlModifier : shift);
    const QPoint at(Any(400), Any(200));
    if (w_.IsWhole()) QTest::mouseClick(twin_.viewport(), Qt::LeftButton, shift, at);
    QTest::mouseClick(w_.txt->viewport(), Qt::LeftButton, shift, at);  // ignored while a text loads
  }

  void ChoosesFromMenu() {
    const char* const items[] = {"EditUndo", "EditCut", "EditCopy", "EditPaste", "EditClear", "EditSelectAll"};
    const int item = Any(6);
    const QString selected = WithLineFeeds(twin_.textCursor().selectedText());
    w_.frame->activateWindow();  // after a dialog none is, on this platform
    QTRY_VERIFY(w_.frame->isActiveWindow());
    w_.txt->setFocus();
    const bool hasSelection = !selected.isEmpty(), canPaste = !QGuiApplication::clipboard()->text().isEmpty();
    const bool applies[] = {twin_.document()->isUndoAvailable(), hasSelection, hasSelection, canPaste, hasSelection,
                            !twin_.document()->isEmpty()};
    QAction* const action = w_.Command(items[item]);
    if (w_.IsWhole()) QCOMPARE(std::pair(items[item], action->isEnabled()), std::pair(items[item], applies[item]));
    QTest::keyClick(w_.frame, Qt::Key_E, Qt::AltModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY2(menu != nullptr, "Alt+E opens no menu");
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    menu->close();  // an item that is not enabled leaves it open
    w_.Text();
    if (item == 0) twin_.undo();
    if (item == 1 || item == 4) twin_.textCursor().removeSelectedText();
    if (item == 3) twin_.paste();
    if (item == 5) twin_.selectAll();
    if ((item == 1 || item == 2) && hasSelection) QCOMPARE(QGuiApplication::clipboard()->text(), selected);
  }

  void BringsText() {
    const QString text = AnyText();
    const int way = Any(4);
    if (way >= 2) w_.Drop(text);
    if (way < 2) w_.Click(w_.browse, way == 0 ? "" : WriteFile(folder_.filePath("brought.txt"), text.toUtf8()));
    if (way != 0) twin_.setPlainText(way == 1 ? model::TextOfFile(text.toUtf8()) : text);
    if (w_.IsWhole()) return;
    w_.txt->insertPlainText("new");  // as accessibility clients do, who do not wait; it cannot be undone
    twin_.document()->setUndoRedoEnabled(false);
    twin_.insertPlainText("new");
    twin_.document()->setUndoRedoEnabled(true);
  }

  void Saves() {
    if (Any(4) == 0) BringsText();  // which may load still
    if (twin_.document()->isEmpty() || Any(2) == 0) return;
    bool palm = Any(2) == 0;
    TestedWindow::Choose(palm ? w_.palm : w_.pocket);
    const QString path = folder_.filePath("saved");
    if (Any(2) == 0)
      w_.inDialog = [&] {  // as accessibility clients do
        palm = !palm;
        (palm ? w_.palm : w_.pocket)->setChecked(true);
      };
    w_.Click(w_.save, path);
    QVERIFY(ReadFile(path) == model::SavedFile(TwinText(), palm));
  }

  QRandomGenerator random_;
  QTemporaryDir folder_;
  TestedWindow w_;
  QPlainTextEdit twin_;
};

int main(int argc, char** argv) { return RunTest<TestRestlessUser>(argc, argv); }
#include "test_restless_user.moc"
