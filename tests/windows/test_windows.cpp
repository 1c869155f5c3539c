// What differs on Windows: the text of alerts, files on other machines, the look of the window, and the end of the
// session.
#include <share.h>
#include <windows.h>

#include "services/ui/qt/local_file.h"
#include "tests/window/fixture.h"

class TestWindows : public QObject {
  Q_OBJECT

 private slots:
  void theReasonIsSaidWhyNoFileIsMade_data() {
    AddRows({{"used by another program", "used", "“%1” could not be created: Permission denied."},
             {"a name that Windows does not allow", "a|b", "“%1” could not be created: Invalid argument."}});
  }
  void theReasonIsSaidWhyNoFileIsMade() {
    QFETCH(const QByteArray, in);
    const QTemporaryDir folder;
    FILE* const usedByOther = _wfsopen(folder.filePath("used").toStdWString().c_str(), L"w", _SH_DENYRW);
    const FolderItem item(QFileInfo(folder.filePath(in)).filesystemFilePath());
    QByteArray outcome = ErrorOf([&item] { item.CreateTextFile()->WriteLine("line"_s); });
    std::fclose(usedByOther);
    QTEST(outcome.replace(QDir::toNativeSeparators(folder.filePath(in)).toUtf8(), "%1"), "out");
  }

  void aFileOfAnotherMachineIsLocal() {
    QCOMPARE(LocalFile(QUrl("file://server/share/a%20b.txt")), "//server/share/a b.txt");
  }

  void contentHasItsSizeInTheStyleOfWindows() {
    TestedWindow w;
    QCOMPARE(QApplication::style()->name(), "windowsvista");
    QCOMPARE(w.frame->centralWidget()->size(), QSize(506, 426));
  }

  void anEndThatIsOnlyAnnouncedKeepsTheChoiceAndIsNone() {
    TestedWindow w;
    w.Drop("text");
    TestedWindow::Choose(w.pocket);
    QEventLoop program;
    QTimer::singleShot(0, [&] {
      for (const UINT message : {WM_QUERYENDSESSION, WM_ENDSESSION})
        SendMessageW(reinterpret_cast<HWND>(w.frame->winId()), message, FALSE, 0);
      program.exit(program.isRunning() ? 1 : 0);
    });
    QVERIFY2(program.exec() == 1, "the program has ended");
    QCOMPARE(w.Text(), "text");
    QCOMPARE(ReadFile(PreferencesPath()), "1\n");
  }
};

int main(int argc, char** argv) { return RunTest<TestWindows>(argc, argv); }
#include "test_windows.moc"
