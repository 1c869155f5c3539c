// The base of the framework: strings, arrays and files.
#include <sys/stat.h>

#include <cerrno>
#include <cfloat>
#include <cmath>
#include <cstring>

#include "app/file_types.h"
#include "services/base/folder_item.h"
#include "services/base/string_array.h"
#include "services/base/text_decoder.h"
#include "tests/files.h"
#include "tests/model.h"

using namespace celestrix;

namespace {

std::string ErrorOf(const std::function<void()>& use) try {
  use();
  return "no error";
} catch (const RuntimeException& error) {
  return error.what();
}

std::string InBrackets(const Ref<StringArray>& array) {
  std::string all;
  for (int i = 0; i <= array->UpperBound(); ++i) all += "[" + std::string(array->Get(i).Bytes()) + "]";
  return all;
}

}  // namespace

class TestServices : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { FileTypes1::_Initialize(); }

  // clang-format off
  void strings() {
    for (const char* space : {" ", "\t", "\n", "\v", "\f", "\r", "\u0085", "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002",
                              "\u2003", "\u2004", "\u2005", "\u2006", "\u2007", "\u2008", "\u2009", "\u200A", "\u2028",
                              "\u2029", "\u202F", "\u205F", "\u3000"})
      QCOMPARE(Trim(String(space + std::string("! \x1F") + space + space)).Bytes(), "! \x1F");
    QCOMPARE(Trim("\xC2\xA1 \xA0"_s).Bytes(), "\xC2\xA1 \xA0");  // bytes like a space's
    QCOMPARE(RuntimeAddString("line"_s, "AB"_s).Slice(3, 2).Bytes(), "eA");
    QCOMPARE(ReplaceAll("aaabaa"_s, "aa"_s, "-aa"_s).Bytes(), "-aaab-aa");
    QCOMPARE(ReplaceLineEndings("\ra\r\nb\n\n\rc\r"_s, "\n"_s).Bytes(), "\na\nb\n\n\nc\n");
    QCOMPARE(InBrackets(Split("\na\n\nb\n"_s, "\n"_s)), "[][a][][b][]");
    const Ref<StringArray> digits = Split("0--1--2--3--4--5--6--7--8--9"_s, "--"_s);
    for (const int index : {9, 4, 4, 0, 5, 1}) digits->Remove(index);
    QCOMPARE(InBrackets(digits), "[1][3][6][7]");
    QCOMPARE(ErrorOf([&] { digits->Remove(4); }), "There is no element 4 in an array that ends at 3.");
    QCOMPARE(RuntimeAddString(Chr(127), Chr(0)).Bytes(), std::string("\x7F\0", 2));
    QCOMPARE(ErrorOf([] { Chr(128); }), "There is no element 128 in an array that ends at 127.");
    QCOMPARE(ErrorOf([] { Chr(-1); }), "There is no element -1 in an array that ends at 127.");
    QCOMPARE(ErrorOf([] { String::Build(String::kMaxSize + 1, nullptr); }), "The text is too long.");
    QCOMPARE(ErrorOf([] { *Ref<FolderItem>(); }), "An object that does not exist was used.");
    QCOMPARE(ErrorOf([] { *Ref<FolderItem>::Nil("why").As<FolderItem>(); }), "why");
    TextInputStream stream("one\r\n\rthree\n\nend"_s);
    for (const char* line : {"one", "", "three", "", "end", ""}) QCOMPARE(stream.ReadLine().Bytes(), line);
  }

  void numbers() {
    const std::pair<const char*, double> numbers[] = {
        {"1", 1}, {"0", 0}, {" \t1 0", 1}, {"1,5", 1}, {"1.5x", 1.5}, {"+1", 1}, {" -1", -1}, {"+-1", 0}, {"", 0}, {"-", 0},
        {".", 0}, {"-.5", -.5}, {"words", 0}, {"nan", 0}, {"-inf", 0}, {"0x1", 0}, {"1e400", DBL_MAX}, {"-1e400", -DBL_MAX}};
    for (const auto& row : numbers) QCOMPARE(std::pair(row.first, Val(String(std::string_view(row.first)))), row);
    QCOMPARE(Val(String("0." + std::string(400, '0') + "1")), 0.);
    const std::pair<double, int> integers[] = {{-.5, 0}, {2147483647.5, INT32_MAX}, {2147483648., INT32_MIN},
                                               {-2147483649., INT32_MIN}, {-INFINITY, INT32_MIN}};
    for (const auto& row : integers) QCOMPARE(std::pair(row.first, RuntimeCvtReal64ToSInt32(row.first)), row);
    QCOMPARE(RuntimeCvtReal64ToSInt32(NAN), INT32_MIN);
  }

  void encodings() {
    for (const QByteArray digits :
         {"c280", "dfbf", "e0a080", "ed9fbf", "ee8080", "efbfbf", "f0908080", "f3bfbfbf", "f48fbfbf", "80", "c1bf", "e09fbf",
          "eda080", "f08fbfbf", "f4908080", "f5808080", "ff", "c2", "c27f", "c2c0", "e0a0", "e0a07f", "f09080", "f090807f",
          "efbfbfc3", "808182838485868788898A8B8C8D8E8F909192939495969798999A9B9C9D9E9FA0FF", "efbbbf efbbbf c396", "efbbbf ff",
          "fffe d600 7f00 ff07 0008 3dd8f0de ffdbffdf 00d800dc", "feff feff d7ff e000 d83ddef0 ffff",
          "fffe 00dc 4100 ffdf ffdb ffdb 4200 00d8", "feff 0041 d8"}) {
      const std::string bytes = QByteArray::fromHex(digits).toStdString();
      QCOMPARE(std::pair(digits, std::string(DecodeText(String(bytes)).Bytes())), std::pair(digits, model::TextOfFile(bytes)));
    }
    for (const std::size_t size : {1, 62, 63, 64, 65, 128})  // of ASCII, which is skipped many at a time
      QCOMPARE(DecodeText(String(std::string(size, 'a') + "\xE9")).Bytes(), std::string(size, 'a') + "é");
  }

  void filesThatCannotBeUsed() {
    const QDir folder(folder_.path());
    folder.mkdir("folder");
    mkfifo(qPrintable(folder.filePath("pipe")), 0600);
    QFile::link("/dev/zero", folder.filePath("device"));
    QFile::link("/proc/self/mem", folder.filePath("bad disk"));
    QFile::resize(WriteFile(folder.filePath("large"), ""), INT32_MAX);
    const std::tuple<QString, const char*, bool> rows[] = {  // the last: whether it can be created
        {"folder", strerror(EISDIR), false}, {"pipe", "It is not a file", false}, {"large/below", strerror(ENOTDIR), false},
        {"no/such", strerror(ENOENT), false}, {QString(300, 'n'), strerror(ENAMETOOLONG), false},
        {"device", "It is not a file", true}, {"bad disk", strerror(EIO), true}, {"large", "It is too large", true}};
    for (const auto& [name, reason, canBeCreated] : rows) {
      const FolderItem item(folder.filePath(name).toStdString());
      const std::string start = "“" + folder.filePath(name).toStdString() + "” could not be ", end = ": " + std::string(reason) + ".";
      QCOMPARE(ErrorOf([&] { item.OpenAsTextFile()->Close(); }), start + "opened" + end);
      QCOMPARE(ErrorOf([&] { item.CreateBinaryFile(*FileTypes1::PDBFile())->Close(); }), canBeCreated ? "no error" : start + "created" + end);
    }
    QCOMPARE(ErrorOf([] { FolderItem("x").CreateBinaryFile("x"_s); }), "There is no file type “x”.");
    FolderItem("/dev/full").CreateBinaryFile(*FileTypes1::PDBFile())->Write(String(std::string(99999, 'x')));  // is not reported
  }
  // clang-format on

  void filesAreReadToTheirEnd() {
    QStringList paths = {"/proc/self/environ"};  // the system says that it has no bytes
    for (const std::size_t size : {0, 1, 4095, 4096, 4097, 100000})
      paths += WriteFile(folder_.filePath(QString::number(size)), std::string(size, 'x'));
    for (const QString& path : paths)
      QCOMPARE(FolderItem(path.toStdString()).OpenAsTextFile()->ReadAll().Bytes(), ReadFile(path));
  }

 private:
  QTemporaryDir folder_;
};

QTEST_APPLESS_MAIN(TestServices)
#include "test_services.moc"
