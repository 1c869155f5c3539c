// What is Windows' own: long paths in any letters, what the alerts say, and files of other machines.
#include <windows.h>

#include "services/base/folder_item.h"
#include "services/ui/qt/local_file.h"
#include "tests/files.h"

using namespace celestrix;

class TestWindows : public QObject {
  Q_OBJECT

 private slots:
  void filesAreMadeAndReadOrTheReasonIsSaid() {
    const QTemporaryDir folder;
    const HANDLE useByOther = CreateFileW(folder.filePath("used").toStdWString().c_str(), GENERIC_READ, 0, nullptr,
                                          CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    QString longName;
    while (longName.size() < 400) longName += "Sätze für 卫星 " + QString(40, QChar('x')) + "/";
    const std::pair<QString, QString> rows[] = {{longName + "Ω.txt", "line\n"},
                                                {"used", "“%1” could not be created: Permission denied."},
                                                {"a|b", "“%1” could not be created: Invalid argument."}};
    for (const auto& [name, outcome] : rows) {
      const FolderItem item(QFileInfo(folder.filePath(name)).filesystemFilePath());
      try {
        item.CreateTextFile()->WriteLine("line"_s);
        QCOMPARE(Bytes(item.OpenAsTextFile()->ReadAll()), outcome.toUtf8());
      } catch (const NilObjectException& error) {
        QCOMPARE(QString(error.what()), outcome.arg(QDir::toNativeSeparators(folder.filePath(name))));
      }
    }
    CloseHandle(useByOther);
    QCOMPARE(LocalFile(QUrl("file://server/share/a%20b.txt")), "//server/share/a b.txt");
  }
};

QTEST_GUILESS_MAIN(TestWindows)
#include "test_windows.moc"
