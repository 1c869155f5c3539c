// Text files are read and made.
#include "services/base/folder_item.h"

#include "tests/files.h"

using namespace celestrix;

class TestFolderItem : public QObject {
  Q_OBJECT

 private slots:
  void aLineEndsAtALineEndingOfAnyKind() {
    const FolderItem item(WriteFile(folder_.filePath("lines"), "one\r\n\rthree\n\nthe rest\r\n").toStdString());
    const Ref<TextInputStream> stream = item.OpenAsTextFile();
    for (const char* line : {"one", "", "three", ""}) QCOMPARE(Bytes(stream->ReadLine()), line);
    QCOMPARE(Bytes(stream->ReadAll()), "the rest\r\n");
    QCOMPARE(Bytes(stream->ReadLine()), "");
  }

  void aTextFileIsMadeWithTheFoldersThatItIsIn() {
    const QString path = folder_.filePath(QString("Sätze für 卫星, die lange Namen haben/").repeated(12) + "Ω.txt");
    const FolderItem item(QFileInfo(path).filesystemFilePath());
    item.CreateTextFile()->WriteLine("line"_s);
    QCOMPARE(Bytes(item.OpenAsTextFile()->ReadAll()), "line\n");
  }

 private:
  QTemporaryDir folder_;
};

QTEST_APPLESS_MAIN(TestFolderItem)
#include "test_folder_item.moc"
