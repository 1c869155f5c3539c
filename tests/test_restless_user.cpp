// A user who does everything in any order, and a twin: a bare field of the toolkit that gets the same keys, clicks,
// commands and texts. After each deed the window's field must hold what the twin holds.
//
// The order comes from a seed, which is printed; CELESTRIX_SEED repeats a run, CELESTRIX_DEEDS makes it longer.
#include <random>

#include "tests/model.h"
#include "tests/window_fixture.h"

namespace {

QString WithLineFeeds(QString text) { return text.replace(QChar::ParagraphSeparator, '\n'); }

}  // namespace

class TestRestlessUser : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    twin_.setFont(w_.txt->font());
    twin_.setWordWrapMode(QTextOption::WrapAnywhere);
    twin_.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    twin_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    home_.setAttribute(Qt::WA_DontShowOnScreen);  // it shall not become the active window
    home_.show();
    resizes();
  }

  void doesAsHePleases() {
    const int seed = qEnvironmentVariable("CELESTRIX_SEED", "20261121").toInt();
    qInfo("seed %d", seed);
    random_.seed(static_cast<unsigned>(seed));
    using Self = TestRestlessUser;
    void (Self::*const deeds[])() = {&Self::typesSomething,  &Self::typesSomething,  &Self::movesAndSelects,
                                     &Self::movesAndSelects, &Self::choosesFromMenu, &Self::choosesFromMenu,
                                     &Self::bringsText,      &Self::bringsText,      &Self::saves,
                                     &Self::switchesFormat,  &Self::resizes};
    for (int deed = qEnvironmentVariable("CELESTRIX_DEEDS", "500").toInt(); deed > 0; --deed) {
      (this->*deeds[Any(11)])();
      if (Any(4) != 0) QCoreApplication::processEvents();
      QCOMPARE(w_.Text(), TwinText().toStdString());
      QCOMPARE(w_.txt->textCursor().position(), twin_.textCursor().position());
      QCOMPARE(w_.txt->textCursor().anchor(), twin_.textCursor().anchor());
      QCOMPARE(w_.save->isEnabled(), !TwinText().isEmpty());
      QCOMPARE(w_.palm->isChecked(), palm_);
      QCOMPARE(w_.pocket->isChecked(), !palm_);
      QCOMPARE(w_.user.alerts, QStringList());
      if (QTest::currentTestFailed()) return;
    }
  }

  void quitsThroughTheMenu() {
    TestedWindow::Choose(w_.pocket);
    w_.user.inDialog = [this] { w_.Command("FileQuit")->trigger(); };
    w_.Click(w_.browse, "");
    QCOMPARE(ReadFile(PreferencesPath()), "1\n");
  }

 private:
  int Any(int below) { return std::uniform_int_distribution(0, below - 1)(random_); }

  QString AnyText() {
    static const QStringList pieces =
        QStringLiteral("\n,\r\n,\r, ,\t,é,\u00A0,\u2028,\u2029,\uFDD0,\uFDD1,\uFDD2,\uFFFC,\U0001F6F0,\uFEFF,\0")
            .split(',');
    QString text = "";
    const int lines = Any(12) == 0 ? 5000 : Any(12);  // now and then one that takes several slices
    for (int line = 0; line < lines; ++line)
      text += QString(Any(75), QChar('A' + Any(26))) + pieces[Any(16)] + (Any(3) == 0 ? "" : "\n");
    return text;
  }

  QString TwinText() { return WithLineFeeds(twin_.document()->toRawText()); }

  void typesSomething() {
    const Qt::Key keys[] = {Qt::Key_X, Qt::Key_Return, Qt::Key_Space, Qt::Key_Backspace, Qt::Key_Delete};
    for (int presses = Any(8); presses > 0; --presses) Press(keys[Any(5)], {});
    w_.Text();  // the keys go first
    if (w_.IsWhole()) return;
    w_.txt->insertPlainText("new");  // as accessibility clients do, who do not wait; it cannot be undone
    twin_.document()->setUndoRedoEnabled(false);
    twin_.insertPlainText("new");
    twin_.document()->setUndoRedoEnabled(true);
  }

  void movesAndSelects() {
    const Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown};
    const auto modifiers = Qt::KeyboardModifiers(Any(2) == 0 ? Qt::ShiftModifier : Qt::NoModifier) |
                           (Any(3) == 0 ? Qt::ControlModifier : Qt::NoModifier);
    const QPoint at(Any(400), Any(200));
    const bool isWhole = w_.IsWhole();  // clicks into a loading text are ignored
    if (Any(2) == 0) return Press(keys[Any(6)], modifiers);
    QTest::mouseClick(w_.txt->viewport(), Qt::LeftButton, modifiers & Qt::ShiftModifier, at);
    if (isWhole) QTest::mouseClick(twin_.viewport(), Qt::LeftButton, modifiers & Qt::ShiftModifier, at);
  }

  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(w_.txt, key, modifiers);
    QTest::keyClick(&twin_, key, modifiers);
  }

  void choosesFromMenu() {
    const char* const items[] = {"EditUndo", "EditCut", "EditCopy", "EditPaste", "EditClear", "EditSelectAll"};
    const int item = Any(6);
    const QString selected = WithLineFeeds(twin_.textCursor().selectedText());
    QApplication::setActiveWindow(w_.frame);  // after a dialog none is, on this platform
    w_.txt->setFocus();
    const bool hasText = !TwinText().isEmpty(), canUndo = twin_.document()->isUndoAvailable();
    const bool canPaste = !QGuiApplication::clipboard()->text().isEmpty();
    const bool applies[] = {canUndo, !selected.isEmpty(), !selected.isEmpty(), canPaste, !selected.isEmpty(), hasText};
    if (w_.IsWhole())
      QCOMPARE(std::pair(items[item], w_.Command(items[item])->isEnabled()), std::pair(items[item], applies[item]));
    QTest::keyClick(w_.frame, Qt::Key_E, Qt::AltModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY2(menu != nullptr, "Alt+E opens no menu");
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(w_.Command(items[item])).center());
    menu->close();  // an item that is not enabled leaves it open
    w_.Text();
    if (item == 0) twin_.undo();
    if (item == 1 || item == 4) twin_.textCursor().removeSelectedText();
    if (item == 3) twin_.paste();
    if (item == 5) twin_.selectAll();
    if ((item == 1 || item == 2) && !selected.isEmpty()) QCOMPARE(QGuiApplication::clipboard()->text(), selected);
  }

  void bringsText() {
    const QString text = AnyText();
    const QString path = WriteFile(folder_.filePath("brought.txt"), text.toStdString());
    const int way = Any(4);
    if (way == 0) w_.Click(w_.browse, "");
    if (way == 1) w_.Click(w_.browse, path);
    if (way == 2) QCOMPARE(w_.Drop({}, {"file://" + path}), "CopyAction");
    if (way == 3) QCOMPARE(w_.Drop(text), "CopyAction");
    if (way == 1 || way == 2) twin_.setPlainText(model::FromUtf8(model::TextOfFile(text.toStdString())));
    if (way == 3) twin_.setPlainText(text);
  }

  void saves() {
    if (Any(2) == 0) bringsText();  // which may load still
    if (TwinText().isEmpty()) return;
    const QString path = folder_.filePath("saved");
    if (Any(2) == 0) QFile::remove(path);
    if (Any(2) == 0)
      w_.user.inDialog = [this] {  // as accessibility clients do
        palm_ = !palm_;
        (palm_ ? w_.palm : w_.pocket)->setChecked(true);
      };
    w_.Click(w_.save, path);
    QVERIFY(ReadFile(path) == model::SavedFile(TwinText().toStdString(), palm_));
  }

  void switchesFormat() {
    palm_ = Any(2) == 0;
    TestedWindow::Choose(palm_ ? w_.palm : w_.pocket);
  }

  void resizes() {
    w_.frame->resize(64 + Any(1200), 64 + Any(1000));
    QCoreApplication::processEvents();
    twin_.resize(w_.txt->size());
  }

  std::mt19937 random_;
  QTemporaryDir folder_;
  TestedWindow w_;
  QWidget home_;
  QPlainTextEdit twin_{&home_};
  bool palm_ = true;
};

int main(int argc, char** argv) { return RunTest<TestRestlessUser>(argc, argv); }
#include "test_restless_user.moc"
