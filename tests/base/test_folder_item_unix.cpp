// What Unix has among its files that is none, and what is said of it; on a system that speaks another language.
#include <libintl.h>
#include <sys/stat.h>

#include "app/file_types.h"
#include "services/base/folder_item.h"
#include "services/base/system_reason.h"
#include "tests/files.h"

using namespace celestrix;

class TestFolderItemUnix : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    FileTypes1::_Initialize();
    SpeakGerman();
    QVERIFY(folder_.mkdir("folder"));
    QCOMPARE(mkfifo(qPrintable(folder_.filePath("pipe")), 0600), 0);
    QVERIFY(QFile::link("/dev/zero", folder_.filePath("device")));
    QVERIFY(QFile::link("/proc/self/mem", folder_.filePath("bad disk")));
    QVERIFY(QFile::resize(WriteFile(folder_.filePath("large"), ""), INT32_MAX));
  }

  void theReasonIsSaidInEnglish_data() {
    AddRows({{"a folder", "folder", "Is a directory"},
             {"below a file", "large/below", "Not a directory"},
             {"nothing", "no/such", "No such file or directory"},
             {"too long a name", QByteArray(300, 'n'), "File name too long"},
             {"a pipe", "pipe", "It is not a file"},
             {"a device, to read", "device", "It is not a file"},
             {"a disk that fails, to read", "bad disk", "Input/output error"},
             {"more than a text can hold, to read", "large", "It is too large"}});
  }
  void theReasonIsSaidInEnglish() {
    QFETCH(const QByteArray, in);
    QFETCH(const QByteArray, out);
    const QByteArray path = folder_.filePath(in).toUtf8(), why = "“" + path + "” could not be %1: " + out + ".";
    const FolderItem item(path.toStdString());
    QCOMPARE(ErrorOf([&] { item.OpenAsTextFile()->Close(); }), QByteArray(why).replace("%1", "opened"));
    const bool canBeCreated = QByteArray(QTest::currentDataTag()).endsWith("to read");
    QCOMPARE(ErrorOf([&] { item.CreateBinaryFile(*FileTypes1::PDBFile())->Close(); }),
             canBeCreated ? "no error" : QByteArray(why).replace("%1", "created"));
  }

  void anErrorWithoutWordsHasItsNumber() { QCOMPARE(SystemReason({99999, std::system_category()}), "Error 99999"); }

  void aWriteThatFailsIsNotReported() {
    const Ref<BinaryStream> stream = FolderItem("/dev/full").CreateBinaryFile(*FileTypes1::PDBFile());
    stream->Write(Text(QByteArray(99999, 'x')));
    stream->Close();
  }

  void aFileThatIsLongerThanTheSystemSaysIsReadToItsEnd() {
    QProcess cat;
    cat.setEnvironment({"LONG=" + QString(33000, 'x')});
    cat.start("/bin/cat", {});
    QVERIFY(cat.waitForStarted());
    const FolderItem environment("/proc/" + std::to_string(cat.processId()) + "/environ");
    QCOMPARE(environment.Length(), 0U);
    QCOMPARE(Bytes(environment.OpenAsTextFile()->ReadAll()).size(), 5 + 33000 + 1);
    cat.closeWriteChannel();
    QVERIFY(cat.waitForFinished());
  }

 private:
  // The C library's own locale under another name, and a catalogue that translates one sentence.
  void SpeakGerman() {
    const QByteArray english("Is a directory", 15), german("Ist ein Ordner", 15);
    QByteArray catalogue;
    QDataStream stream(&catalogue, QIODevice::WriteOnly);
    stream << 0x950412DE << 0 << 1 << 28 << 36 << 0 << 44 << 14 << 44 << 14 << 59;  // where and how long they are
    QVERIFY(folder_.mkpath("de/LC_MESSAGES"));
    WriteFile(folder_.filePath("de/LC_MESSAGES/libc.mo"), catalogue + english + german);
    QVERIFY(QFile::link("/usr/lib/locale/C.utf8", folder_.filePath("de_DE.utf8")));
    qputenv("LOCPATH", folder_.path().toUtf8());
    QVERIFY(setlocale(LC_ALL, "de_DE.UTF-8") != nullptr);
    bindtextdomain("libc", qPrintable(folder_.path()));
    QCOMPARE(strerror(EISDIR), "Ist ein Ordner");
  }

  QTemporaryDir temporary_;
  QDir folder_{temporary_.path()};
};

QTEST_GUILESS_MAIN(TestFolderItemUnix)
#include "test_folder_item_unix.moc"
