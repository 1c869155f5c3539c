// What happens in the middle of a save.
#include "tests/window/fixture.h"

namespace {

/// Lines of element sets, with a mark in front of each, as when files were joined together.
const QString kLongText =
    (QStringLiteral("\uFEFFSAT \U0001F6F0 é\n") + QString(71, '1') + "\n").repeated(12000) + "end";

}  // namespace

class TestSaveCommand : public QObject {
  Q_OBJECT

 private slots:
  // The last one: it ends the program.
  void eventsDuringASaveTakeTheirTurn() {
    TestedWindow w;
    const QString path = folder_.filePath("saved.ppc"), file = WriteFile(folder_.filePath("dropped.txt"), "dropped\n");
    w.Drop(kLongText);
    QTRY_VERIFY2_WITH_TIMEOUT(w.IsWhole(), "waited for the field to show its text", 20000);
    TestedWindow::Choose(w.pocket);
    QStringList then;
    const auto inTheMiddle = [&] {
      w.palm->setChecked(true);                   // as accessibility clients do; the file is of the format chosen last
      QTest::mouseClick(w.save, Qt::LeftButton);  // as the system ends the program, its dialog is not shown
      TestedWindow::Choose(w.pocket);
      QTest::keyClick(w.txt, Qt::Key_X);
      then += w.Drop({}, {"file://" + file});
      // The session's end is announced; of the manager that announces it, there is none here.
      QMetaObject::invokeMethod(qApp, "commitDataRequest", QGenericArgument("QSessionManager&", qApp));
      w.Drop("too late");
      if (w.palm->isChecked()) then += "still Palm";
      if (w.frame->isVisible()) then += "still open";
      if (ReadFile(path).size() < 78 + 221 * 8000) then += "still saving";
    };
    w.inDialog = [&] {  // with the first yield of the save
      connect(QApplication::activeModalWidget(), &QObject::destroyed, qApp, inTheMiddle, Qt::QueuedConnection);
    };
    w.Click(w.save, path);
    QCOMPARE(then, QStringList({"copied", "still Palm", "still open", "still saving"}));
    QCOMPARE(ReadFile(path), model::SavedFile(kLongText, true));
    QCOMPARE(w.Text(), "dropped\n");
    TestedWindow::Choose(w.palm);
    QVERIFY(w.pocket->isChecked());  // nothing happens any more
    QCOMPARE(ReadFile(PreferencesPath()), "1\n");
  }

 private:
  QTemporaryDir folder_;
};

int main(int argc, char** argv) { return RunTest<TestSaveCommand>(argc, argv); }
#include "test_save_command.moc"
