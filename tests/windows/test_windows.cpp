// What is Windows' own: long paths in any letters, what the alerts say, files of other machines, the look of the
// window, and the session's end.
#include <windows.h>

#include "services/base/folder_item.h"
#include "services/ui/qt/local_file.h"
#include "tests/window/fixture.h"

class TestWindows : public QObject {
  Q_OBJECT

 private slots:
  void aFileIsMadeAndReadOrTheReasonIsSaid_data() {
    QString longName;
    while (longName.size() < 400) longName += "Sätze für 卫星 " + QString(40, QChar('x')) + "/";
    AddRows({{"a path of 400 letters of all kinds", (longName + "Ω.txt").toUtf8(), "line\n"},
             {"used by another program", "used", "“%1” could not be created: Permission denied."},
             {"a name that Windows does not allow", "a|b", "“%1” could not be created: Invalid argument."}});
  }
  void aFileIsMadeAndReadOrTheReasonIsSaid() {
    QFETCH(const QByteArray, in);
    const QTemporaryDir folder;
    const HANDLE useByOther = CreateFileW(folder.filePath("used").toStdWString().c_str(), GENERIC_READ, 0, nullptr,
                                          CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    const FolderItem item(QFileInfo(folder.filePath(in)).filesystemFilePath());
    QByteArray outcome = ErrorOf([&item] { item.CreateTextFile()->WriteLine("line"_s); });
    if (outcome == "no error") outcome = Bytes(item.OpenAsTextFile()->ReadAll());
    CloseHandle(useByOther);
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
    bool goesOn = false;
    QTimer::singleShot(0, [&] {
      const auto window = reinterpret_cast<HWND>(w.frame->winId());
      SendMessageW(window, WM_QUERYENDSESSION, 0, 0);
      SendMessageW(window, WM_ENDSESSION, FALSE, 0);
      goesOn = program.isRunning();
      program.exit();
    });
    program.exec();
    QVERIFY(goesOn);
    QCOMPARE(w.Text(), "text");
    QCOMPARE(ReadFile(PreferencesPath()), "1\n");
  }
};

int main(int argc, char** argv) { return RunTest<TestWindows>(argc, argv); }
#include "test_windows.moc"
