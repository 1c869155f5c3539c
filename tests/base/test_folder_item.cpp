// What stands at a place of the file system: read, written, deleted.
#include "services/base/folder_item.h"

#include "app/file_types.h"
#include "tests/files.h"

using namespace celestrix;

class TestFolderItem : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { FileTypes1::_Initialize(); }

  void aTextFileIsReadToItsEnd() {
    for (const int size : {0, 1, 4095, 4096, 4097, 100000}) {
      WriteFile(path_, QByteArray(size, 'x'));
      const QByteArray text = Bytes(item_.OpenAsTextFile()->ReadAll());
      QCOMPARE(text.size(), size);
      QCOMPARE(text.count('x'), size);
    }
  }

  void aLineEndsAtALineEndingOfAnyKind() {
    WriteFile(path_, "one\r\n\rthree\n\nfive\r\nthe rest\r\n");
    const Ref<TextInputStream> stream = item_.OpenAsTextFile();
    for (const char* line : {"one", "", "three", "", "five"}) QCOMPARE(Bytes(stream->ReadLine()), line);
    QCOMPARE(Bytes(stream->ReadAll()), "the rest\r\n");
    QCOMPARE(Bytes(stream->ReadLine()), "");
  }

  void aTextFileIsMadeWithTheFoldersThatItIsIn() {
    FolderItem(folder_.filePath("a/b/text").toStdString()).CreateTextFile()->WriteLine("line"_s);
    QCOMPARE(ReadFile(folder_.filePath("a/b/text")), "line\n");
  }

  void aBinaryFileTakesThePlaceOfALongerOne() {
    WriteFile(path_, "what stood there before");
    const Ref<BinaryStream> stream = item_.CreateBinaryFile(*FileTypes1::PDBFile());
    stream->Write("0123"_s);
    stream->Position(1);
    stream->WriteByte('x');
    stream->Close();
    stream->Write("too late"_s);
    QCOMPARE(ReadFile(path_), "0x23");
  }

  void theLastReferenceToAFileClosesIt() {
    item_.CreateBinaryFile(*FileTypes1::PDBFile())->Write("bytes"_s);
    QCOMPARE(ReadFile(path_), "bytes");
  }

  void onlyFilesAreDeleted() {
    WriteFile(path_, "");
    for (const QString& path : {path_, folder_.path(), folder_.filePath("nothing")})
      FolderItem(path.toStdString()).Delete();
    QVERIFY(!item_.Exists());
    QVERIFY(QFileInfo::exists(folder_.path()));
  }

  void whatDoesNotExistIsNotUsed() {
    QCOMPARE(ErrorOf([this] { item_.CreateBinaryFile("x"_s); }), "There is no file type “x”.");
    QCOMPARE(ErrorOf([] { Ref<FolderItem>()->Delete(); }), "An object that does not exist was used.");
  }

 private:
  QTemporaryDir folder_;
  QString path_ = folder_.filePath("file");
  FolderItem item_{path_.toStdString()};
};

QTEST_APPLESS_MAIN(TestFolderItem)
#include "test_folder_item.moc"
