// FolderItem where there is no regular file, or a failing one, as Linux has them, on a system in another language.
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

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
    signal(SIGXFSZ, SIG_IGN);  // it would end the program at the limit on files' sizes
    QCOMPARE(mkfifo(qPrintable(folder_.filePath("pipe")), 0600), 0);
    // Links, so that no fault can remove the machine's own.
    QVERIFY(QFile::link("/dev/zero", folder_.filePath("zero")));
    QVERIFY(QFile::link("/proc/self/mem", folder_.filePath("failing")));
  }

  void theReasonIsSaidInEnglish_data() {
    AddRows({{"nothing", "no/such", "No such file or directory"},
             {"too long a name", QByteArray(300, 'n'), "File name too long"},
             {"a pipe, which must not be waited for", "pipe", "It is not a file"},
             {"a device, to read", "zero", "It is not a file"},
             {"a disk that fails, to read", "failing", "Input/output error"}});
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

  void afterAWriteThatFailsNothingIsWritten() {
    const FolderItem bytes(folder_.filePath("bytes").toStdString()), lines(folder_.filePath("lines").toStdString());
    {
      const Ref<BinaryStream> binary = bytes.CreateBinaryFile(*FileTypes1::PDBFile());
      const Ref<TextOutputStream> text = lines.CreateTextFile();
      const auto writeOn = [&, kilobyte = Text(QByteArray(1000, 'x'))] {
        for (int i = 0; i < 200; ++i) binary->Write(kilobyte), text->WriteLine(kilobyte);
      };
      rlimit usual = {};
      getrlimit(RLIMIT_FSIZE, &usual);
      const rlimit small = {100'000, usual.rlim_max};
      setrlimit(RLIMIT_FSIZE, &small);  // for the program, a full disk
      writeOn();
      setrlimit(RLIMIT_FSIZE, &usual);
      writeOn();
      binary->Position(0);
      binary->Write("over it"_s);
    }
    QCOMPARE(bytes.Length(), 100'000U);
    QCOMPARE(lines.Length(), 100'000U);
    QCOMPARE(ReadFile(folder_.filePath("bytes")).left(10), "xxxxxxxxxx");
  }

  void onlyFoldersThatAreMadeAreForTheUserAlone() {
    const QString old = folder_.filePath("old");
    QCOMPARE(mkdir(qPrintable(old), 0) + chmod(qPrintable(old), 0755), 0);
    FolderItem(QFileInfo(old + "/new/newer/file").filesystemFilePath()).CreateTextFile()->Close();
    for (const auto& [name, mode] : {std::pair("", 0755), {"/new", 0700}, {"/new/newer", 0700}}) {
      const auto made = std::filesystem::status((old + name).toStdString()).permissions();
      QCOMPARE(QByteArray::number(static_cast<int>(made), 8), QByteArray::number(mode, 8));
    }
  }

  void aFileThatIsLongerThanTheSystemSaysIsReadToItsEnd() {
    // Its length is 0, the system says. It has tens of thousands of bytes, with the stack near the end.
    const char maps[] = "/proc/self/maps";
    const QByteArray text = Bytes(FolderItem(maps).OpenAsTextFile()->ReadAll());
    QCOMPARE(text.left(20), ReadFile(maps).left(20));
    QVERIFY(text.contains("[stack]"));
  }

 private:
  QTemporaryDir folder_;
};

QTEST_GUILESS_MAIN(TestSpecialFiles)
#include "test_special_files.moc"
