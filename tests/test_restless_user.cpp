// A user who does everything in any order, thousands of times. After each deed the window must be in order.
//
// The order comes from a seed, which is printed; CELESTRIX_SEED repeats a run, CELESTRIX_DEEDS makes it longer.
#include <random>

#include "tests/model.h"
#include "tests/window_fixture.h"

namespace {

int Setting(const char* name, int otherwise) {
  return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
}

}  // namespace

class TestRestlessUser : public QObject {
  Q_OBJECT

 private slots:
  void doesAsHePleases() {
    const int seed = Setting("CELESTRIX_SEED", 20261121);
    qInfo("seed %d", seed);
    random_.seed(static_cast<unsigned>(seed));
    void (TestRestlessUser::*const deeds[])() = {&TestRestlessUser::typesSomething,  &TestRestlessUser::typesSomething,
                                                 &TestRestlessUser::movesAndSelects, &TestRestlessUser::choosesFromMenu,
                                                 &TestRestlessUser::choosesFromMenu, &TestRestlessUser::dropsSomething,
                                                 &TestRestlessUser::browses,         &TestRestlessUser::saves,
                                                 &TestRestlessUser::switchesFormat,  &TestRestlessUser::resizes};
    for (int deed = Setting("CELESTRIX_DEEDS", 3000); deed > 0; --deed) {
      (this->*deeds[Any(10)])();
      if (Any(4) != 0) QCoreApplication::processEvents();
      const bool hasText = !w_.Text().empty();  // asked first: edits that wait are done on the way
      QCOMPARE(w_.save->isEnabled(), hasText);
      QVERIFY(w_.palm->isChecked() != w_.pocket->isChecked());
      QVERIFY(QApplication::activeModalWidget() == nullptr);
      if (QTest::currentTestFailed()) return;
    }
  }

 private:
  int Any(int below) { return std::uniform_int_distribution(0, below - 1)(random_); }

  std::string AnyText() {
    static const std::string pieces[] = {"\n", "\r\n",   "\r",     " ",          "\t",
                                         "é",  "\u00A0", "\u2028", "\U0001F6F0", std::string(1, '\0')};
    std::string text;
    const int lines = Any(10) == 0 ? 3000 : Any(12);  // now and then one that takes several slices
    for (int line = 0; line < lines; ++line)
      text += std::string(static_cast<size_t>(Any(75)), static_cast<char>('A' + Any(26))) + pieces[Any(10)] +
              (Any(3) == 0 ? "" : "\n");
    return text;
  }

  void typesSomething() {
    const Qt::Key keys[] = {Qt::Key_X, Qt::Key_Return, Qt::Key_Space, Qt::Key_Backspace, Qt::Key_Delete};
    for (int presses = Any(8); presses >= 0; --presses) QTest::keyClick(w_.txt, keys[Any(5)]);
  }

  void movesAndSelects() {
    const Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown};
    const auto modifiers = Qt::KeyboardModifiers(Any(2) == 0 ? Qt::ShiftModifier : Qt::NoModifier) |
                           (Any(3) == 0 ? Qt::ControlModifier : Qt::NoModifier);
    QTest::keyClick(w_.txt, keys[Any(6)], modifiers);
    QTest::mouseClick(w_.txt->viewport(), Qt::LeftButton, {}, QPoint(Any(400), Any(200)));
  }

  void choosesFromMenu() {
    const char* items[] = {"EditUndo", "EditCut", "EditCopy", "EditPaste", "EditClear", "EditSelectAll"};
    w_.txt->setFocus();
    w_.frame->findChild<QAction*>(items[Any(6)])->trigger();
  }

  void dropsSomething() {
    const std::string text = AnyText();
    if (Any(2) == 0) {
      QVERIFY(w_.DropFiles({WriteFile(folder_.filePath("dropped.txt"), text)}));
      QCOMPARE(w_.Text(), model::TextOfFile(text));
    } else {
      QVERIFY(w_.DropText(QString::fromStdString(text)));
      QCOMPARE(w_.Text(), text);
    }
  }

  // Edits that wait for a long text are done while a dialog is open; what they make of it is known only afterwards.
  void letsEditsHappen() { QTRY_VERIFY(w_.IsWhole()); }

  void browses() {
    letsEditsHappen();
    const std::string text = AnyText(), before = w_.Text();
    const bool cancels = Any(2) == 0;
    w_.Click(w_.browse, cancels ? "" : WriteFile(folder_.filePath("browsed.txt"), text));
    QCOMPARE(w_.Text(), cancels ? before : model::TextOfFile(text));
  }

  void saves() {
    Any(2) == 0 ? letsEditsHappen() : dropsSomething();
    if (!w_.save->isEnabled()) return;
    const QString path = folder_.filePath("saved");
    if (Any(2) == 0) QFile::remove(path);
    w_.Click(w_.save, path);
    QVERIFY(ReadFile(path) == model::SavedFile(w_.Text(), w_.palm->isChecked()));
  }

  void switchesFormat() { QTest::mouseClick(Any(2) == 0 ? w_.palm : w_.pocket, Qt::LeftButton, {}, QPoint(8, 10)); }

  void resizes() { w_.frame->resize(64 + Any(1200), 64 + Any(1000)); }

  std::mt19937 random_;
  QTemporaryDir folder_;
  TestedWindow w_;
};

int main(int argc, char** argv) {
  Program program(argc, argv);
  TestRestlessUser test;
  return QTest::qExec(&test, argc, argv);
}
#include "test_restless_user.moc"
