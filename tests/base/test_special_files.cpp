// FolderItem where there is no regular file, or a failing one, as Linux has them, on a system in another language.
#include <sys/stat.h>

#include "app/file_types.h"
#include "services/base/folder_item.h"
#include "tests/files.h"

using namespace celestrix;

/// Replaces the C library's: the system's text if English is not asked for.
extern "C" char* strerror(int /*error*/) noexcept {
  static char german[] = "Es ging nicht";
  return german;
}

class TestSpecialFiles : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    FileTypes1::_Initialize();
    QCOMPARE(mkfifo(qPrintable(folder_.filePath("pipe")), 0600), 0);
    QCOMPARE(mknod(qPrintable(folder_.filePath("socket")), S_IFSOCK | 0600, 0), 0);
    QVERIFY(QFile::resize(WriteFile(folder_.filePath("large"), ""), INT32_MAX));
  }

  void theReasonIsSaidInEnglish_data() {
    AddRows({{"a folder", "/usr", "Is a directory"},
             {"nothing", "no/such", "No such file or directory"},
             {"too long a name", QByteArray(300, 'n'), "File name too long"},
             {"a socket", "socket", "It is not a file"},
             {"a pipe, which must not be waited for", "pipe", "It is not a file"},
             {"a device, to read", "/dev/zero", "It is not a file"},
             {"a disk that fails, to read", "/proc/self/mem", "Input/output error"},
             {"more than a text can hold, to read", "large", "It is too large"}});
  }
  void theReasonIsSaidInEnglish() {
    QFETCH(const QByteArray, in);
    QFETCH(const QByteArray, out);
    const QByteArray path = folder_.filePath(in).toUtf8(), why = "“" + path + "” could not be %1: " + out + ".";
    const FolderItem item(path.toStdString());
    QCOMPARE(ErrorOf([&] { item.OpenAsTextFile()->Close(); }), QByteArray(why).replace("%1", "opened"));
    const bool canBeCreated = QByteArray(QTest::currentDataTag()).endsWith("to read");
    // Of a write that fails, as on the failing disk, nothing is said.
    const String bytes = Text(QByteArray(99999, 'x'));
    QCOMPARE(ErrorOf([&] { item.CreateBinaryFile(*FileTypes1::PDBFile())->Write(bytes); }),
             canBeCreated ? "no error" : QByteArray(why).replace("%1", "created"));
  }

  void aFileThatIsLongerThanTheSystemSaysIsReadToItsEnd() {
    // Its length is 0, the system says. It has tens of thousands of bytes, with the stack near the end.
    const char maps[] = "/proc/self/maps";
    const QByteArray text = Bytes(FolderItem(maps).OpenAsTextFile()->ReadAll());
    QCOMPARE(text.left(20), ReadFile(maps).left(20));
    QVERIFY(text.contains("[stack]"));
  }

 private:
  QTemporaryDir temporary_;
  QDir folder_{temporary_.path()};
};

QTEST_GUILESS_MAIN(TestSpecialFiles)
#include "test_special_files.moc"
