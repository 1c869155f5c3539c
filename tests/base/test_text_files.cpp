// Text files are read, decoded and made.
#include "services/base/folder_item.h"
#include "services/base/text_decoder.h"
#include "tests/files.h"
#include "tests/model.h"

using namespace celestrix;

class TestTextFiles : public QObject {
  Q_OBJECT

 private slots:
  // Every first byte, second bytes at the limits of the rules, and what may follow; at the start, after each mark, and
  // after ASCII, which is skipped many bytes at a time.
  void allBytesAreDecodedAsTheModelSays() {
    const QByteArrayList starts = {"",         "\xEF\xBB\xBF",      "\xFE\xFF",
                                   "\xFF\xFE", QByteArray(63, 'a'), QByteArray(64, 'a')};
    const QByteArray seconds("\0\x07\x0A\x7F\x80\x8D\x8F\x90\x9F\xA0\xBF\xC0\xD8\xDC", 14);
    const QByteArray ends("|\x7F|\x80|\xDC|\xBF\xBF|\xDC\0|\0\xDC|\xD8\0|\x80\x7F|", 22);
    const QByteArrayList tails = (ends + QByteArray(62, 'a')).split('|');
    for (const QByteArray& start : starts)
      for (qsizetype i = 0; i < 256 * seconds.size() * tails.size(); ++i) {
        const QByteArray bytes = start + char(i % 256) + seconds[i / 256 % 14] + tails[i / 256 / 14];
        const QByteArray text = Bytes(ReplaceLineEndings(DecodeText(Text(bytes)), EndOfLine()));
        const QByteArray expected = model::TextOfFile(bytes).toUtf8();
        QVERIFY2(text == expected, bytes.toHex(' ') + " became " + text.toHex(' ') + ", not " + expected.toHex(' '));
      }
  }

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

QTEST_APPLESS_MAIN(TestTextFiles)
#include "test_text_files.moc"
