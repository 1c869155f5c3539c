// What happens in the middle of a save.
#include <csignal>

#include "tests/window/fixture.h"

class TestSaveCommand : public QObject {
  Q_OBJECT

 private slots:
  void aFileThatMayNotGrowIsAWriteThatFails() {
    QVERIFY2(signal(SIGXFSZ, SIG_IGN) == SIG_IGN, "the system would end the program");
  }

  // The last one: it ends the program.
  void whatHappensDuringASaveTakesItsTurn() {
    TestedWindow w;
    const QString path = folder_.filePath("saved.ppc"), dropped = WriteFile(folder_.filePath("dropped.txt"), "dropped");
    w.Fill(kLongText);
    QTRY_VERIFY2_WITH_TIMEOUT(w.IsWhole(), "waited for the field to show its text", 20000);
    TestedWindow::Choose(w.pocket);
    bool isSaving = false;
    const auto inTheMiddle = [&] {
      QTest::mouseClick(w.save, Qt::LeftButton);  // its dialog is not shown, as the session ends
      for (QRadioButton* choice : {w.pocket, w.palm, w.pocket}) {
        TestedWindow::Choose(choice);
        QVERIFY2(choice->isChecked(), "a choice waits for the end of the save");
      }
      QTest::keyClick(w.txt, Qt::Key_X);
      QCOMPARE(w.Drop({}, {"file://" + dropped}), "copied");
      QEvent quit(QEvent::Quit);  // what Qt makes of the end of the session
      QCoreApplication::sendEvent(qApp, &quit);
      w.Drop("too late");
      QVERIFY2(w.frame->isVisible(), "the window closes during the save");
      isSaving = ReadFile(path).size() < 78 + 221 * 8000;
    };
    w.inDialog = [&](const QFileDialog& dialog) {
      w.palm->setChecked(true);  // as accessibility clients can; the file is of the format that was chosen last
      // With the first yield of the save:
      connect(&dialog, &QObject::destroyed, qApp, inTheMiddle, Qt::QueuedConnection);
    };
    w.Click(w.save, path);
    QVERIFY2(isSaving, "the save ends before anything can happen");
    QCOMPARE(Difference(ReadFile(path), model::SavedFile(kLongText, true)), "");
    QCOMPARE(w.Text(), "dropped");
    QCOMPARE(ReadFile(PreferencesPath()), "1\n");
  }

 private:
  QTemporaryDir folder_;
};

int main(int argc, char** argv) { return RunTest<TestSaveCommand>(argc, argv); }
#include "test_save_command.moc"
