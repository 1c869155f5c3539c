// The base of the framework: strings, arrays and files.
#include <sys/stat.h>

#include "app/file_types.h"
#include "services/base/folder_item.h"
#include "services/base/string_array.h"
#include "services/base/text_decoder.h"
#include "tests/files.h"
#include "tests/model.h"

using namespace celestrix;

namespace {

QByteArray ErrorOf(const std::function<void()>& use) try {
  use();
  return "no error";
} catch (const RuntimeException& error) {
  return error.what();
}

}  // namespace

class TestServices : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { FileTypes1::_Initialize(); }

  // clang-format off
  void strings() {
    for (char16_t c = 1; c < 0xD800; ++c) {
      const QString ends(2, c), text = ends + "a " + c + " z" + ends;
      QCOMPARE(Bytes(Trim(String(text.toStdString()))), text.trimmed().toUtf8());
    }
    QCOMPARE(Bytes(RuntimeAddString("line"_s, "AB"_s).Slice(3, 2)), "eA");
    QCOMPARE(Bytes(ReplaceAll("aaabaa"_s, "aa"_s, "-aa"_s)), "-aaab-aa");
    QCOMPARE(Bytes(ReplaceLineEndings("\ra\r\nb\n\n\rc\r"_s, "\r\n"_s)), "\r\na\r\nb\r\n\r\n\r\nc\r\n");
    const Ref<StringArray> digits = Split("--0--1--2--3--4--5--6--7--8--9"_s, "--"_s);
    for (const int index : {10, 5, 5, 1, 6, 2}) digits->Remove(index);
    QByteArray left;
    for (int i = 0; i <= digits->UpperBound(); ++i) left += "[" + Bytes(digits->Get(i)) + "]";
    QCOMPARE(left, "[][1][3][6][7]");
    QCOMPARE(ErrorOf([&] { digits->Remove(5); }), "There is no element 5 in an array that ends at 4.");
    QCOMPARE(Asc(""_s), 0);
    QCOMPARE(Bytes(RuntimeAddString(Chr(127), Chr(0))), QByteArray("\x7F\0", 2));
    QCOMPARE(ErrorOf([] { Chr(128); }), "There is no element 128 in an array that ends at 127.");
    QCOMPARE(ErrorOf([] { String::Build(String::kMaxSize + 1, nullptr); }), "The text is too long.");
    QCOMPARE(ErrorOf([] { *Ref<FolderItem>(); }), "An object that does not exist was used.");
    TextInputStream stream("one\r\n\rthree\n\nend"_s);
    for (const char* line : {"one", "", "three", "", "end", ""}) QCOMPARE(Bytes(stream.ReadLine()), line);
  }

  void numbers() {
    const std::pair<const char*, double> numbers[] = {
        {"1", 1}, {"0", 0}, {" \t1 0", 1}, {"1,5", 1}, {"1.5x", 1.5}, {"+1", 1}, {" -1", -1}, {"+-1", 0}, {"", 0}, {"-", 0},
        {".", 0}, {"-.5", -.5}, {"words", 0}, {"nan", 0}, {"-inf", 0}, {"0x1", 0}, {"1e400", 0}, {"1e", 1}, {"1east", 1}, {"1E+", 1}, {"\u00A01", 1}, {"1e-400", 0}};
    for (const auto& row : numbers) QCOMPARE(std::pair(row.first, Val(String(std::string_view(row.first)))), row);
    const std::pair<double, int> integers[] = {{-.5, 0}, {2147483647.5, INT32_MAX}, {-2147483647, -INT32_MAX},
                                               {2147483648, INT32_MIN}, {-2147483649, INT32_MIN}, {qQNaN(), INT32_MIN}};
    for (const auto& [number, integer] : integers)
      QVERIFY2(RuntimeCvtReal64ToSInt32(number) == integer, qPrintable(QString::number(number, 'f')));
  }

  void encodings() {
    // Every first byte, second ones at the limits of the rules, and what may come next; at the start, behind a mark, and
    // behind ASCII, which is skipped many bytes at a time.
    const QByteArrayList starts = {"", "\xEF\xBB\xBF", "\xFE\xFF", "\xFF\xFE", QByteArray(63, 'a'), QByteArray(64, 'a')};
    const QByteArray ends("|\x7F|\x80|\xBF\xBF|\xDC\0|\0\xDC|\xD8\0|\x80\x7F|", 20);
    const QByteArrayList tails = (ends + QByteArray(62, 'a')).split('|');
    const QByteArray seconds("\0\x07\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xD8\xDC", 12);
    for (const QByteArray& start : starts)
      for (qsizetype i = 0; i < 256 * 12 * tails.size(); ++i) {
        const QByteArray bytes = start + char(i % 256) + seconds[i / 256 % 12] + tails[i / 256 / 12];
        const String text = ReplaceLineEndings(DecodeText(String(bytes.toStdString())), EndOfLine());
        QVERIFY2(Bytes(text) == model::TextOfFile(bytes).toUtf8(), bytes.toHex());
      }
  }

  void filesThatCannotBeUsed() {
    const QDir folder(folder_.path());
    folder.mkdir("folder");
    mkfifo(qPrintable(folder.filePath("pipe")), 0600);
    QFile::link("/dev/zero", folder.filePath("device"));
    QFile::link("/proc/self/mem", folder.filePath("bad disk"));
    QFile::resize(WriteFile(folder.filePath("large"), ""), INT32_MAX);
    const std::tuple<QString, QByteArray, bool> rows[] = {  // the last: whether it can be created
        {"folder", strerror(EISDIR), false}, {"pipe", "It is not a file", false}, {"large/below", strerror(ENOTDIR), false},
        {"no/such", strerror(ENOENT), false}, {QString(300, 'n'), strerror(ENAMETOOLONG), false},
        {"device", "It is not a file", true}, {"bad disk", strerror(EIO), true}, {"large", "It is too large", true}};
    for (const auto& [name, reason, canBeCreated] : rows) {
      const QByteArray path = folder.filePath(name).toUtf8(), failure = "“" + path + "” could not be %1: " + reason + ".";
      const FolderItem item(path.toStdString());
      QCOMPARE(ErrorOf([&] { item.OpenAsTextFile()->Close(); }), QByteArray(failure).replace("%1", "opened"));
      QCOMPARE(ErrorOf([&] { item.CreateBinaryFile(*FileTypes1::PDBFile())->Close(); }),
               canBeCreated ? "no error" : QByteArray(failure).replace("%1", "created"));
    }
    QCOMPARE(ErrorOf([] { FolderItem("x").CreateBinaryFile("x"_s); }), "There is no file type “x”.");
    FolderItem("/dev/full").CreateBinaryFile(*FileTypes1::PDBFile())->Write(String(std::string(99999, 'x')));  // is not reported
  }
  // clang-format on

  void filesAreReadToTheirEnd() {
    QStringList paths = {"/proc/self/environ"};  // the system says that it has no bytes
    for (const int size : {0, 1, 4095, 4096, 4097, 100000})
      paths += WriteFile(folder_.filePath(QString::number(size)), QByteArray(size, 'x'));
    for (const QString& path : paths)
      QCOMPARE(Bytes(FolderItem(path.toStdString()).OpenAsTextFile()->ReadAll()), ReadFile(path));
  }

 private:
  QTemporaryDir folder_;
};

QTEST_APPLESS_MAIN(TestServices)
#include "test_services.moc"
