// The base of the framework: strings, arrays, files and streams.
#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <map>

#include "services/base/file_type.h"
#include "services/base/folder_item.h"
#include "services/base/string_array.h"
#include "tests/files.h"
#include "tests/model.h"

using namespace celestrix;

namespace {

std::string Text(const String& text) { return std::string(text.Bytes()); }
String Make(const std::string& text) { return String(std::string_view(text)); }
FolderItem At(const QString& path) { return FolderItem(path.toStdString()); }

const String& OutputType() {
  static FileType type;
  type.Name = "Output"_s;
  static const String name = type;
  return name;
}

std::string WhyNil(const std::function<void()>& use) {
  try {
    use();
  } catch (const NilObjectException& error) {
    return error.what();
  }
  return "it was not null";
}

}  // namespace

class TestServices : public QObject {
  Q_OBJECT

 private slots:
  void stringsThatShareBytesNeverChange() {
    const String line = Make("line");
    String longer = RuntimeAddString(line, "A"_s);
    const String kept = longer;
    const String other = RuntimeAddString(kept, "B"_s);  // takes the room behind "lineA"
    longer += "C"_s;                                     // must not take it again
    QCOMPARE(Text(line) + Text(kept) + Text(other) + Text(longer), "linelineAlineABlineAC");
    QCOMPARE(Text(RuntimeAddString(String(), other.Slice(4, 2))), "AB");

    std::string expected;
    String grown;
    for (int i = 0; i < 3000; ++i) {  // through the sizes at which strings change the kind of their block
      const std::string piece(static_cast<std::size_t>(i % 90), static_cast<char>('a' + i % 26));
      expected += piece;
      grown += Make(piece);
    }
    QCOMPARE(Text(grown), expected);
  }

  void stringOperations() {
    QCOMPARE(Text(Chr(0)), std::string(1, '\0'));
    QCOMPARE(LenB(RuntimeAddString("abc"_s, Chr(0))), 4);
    QVERIFY(RuntimeStringCompare("a"_s, ""_s) != 0);
    QCOMPARE(Text(Trim("\xC2\xA0 é x\u3000\v\u2003"_s)), "é x");
    QCOMPARE(Text(Trim("\xC2\xA1 \xA0"_s)), "\xC2\xA1 \xA0");  // bytes of a blank that are none
    QCOMPARE(Text(ReplaceLineEndings("\ra\r\nb\n\n\rc\r"_s, "\n"_s)), "\na\nb\n\n\nc\n");
    QCOMPARE(Text(ReplaceLineEndings("a\n\nb\n"_s, "\r\n"_s)), "a\r\n\r\nb\r\n");
  }

  void valReadsTheNumberAtTheStart() {
    // clang-format off
    const std::map<const char*, double> numbers = {
        {"1", 1}, {"0", 0}, {" \t1 0", 1}, {"1,5", 1}, {"1.5x", 1.5}, {"+1", 1}, {" -1", -1}, {"+-1", 0}, {"", 0}, {"-", 0},
        {".", 0}, {"-.5", -.5}, {"words", 0}, {"nan", 0}, {"-inf", 0}, {"0x1", 0}, {"1e", 1}, {"1e-400", 0},
        {"1e400", HUGE_VAL}, {"-1e400", -HUGE_VAL}};
    const std::pair<double, std::int32_t> integers[] = {
        {-.5, 0}, {2147483647.5, INT32_MAX}, {2147483648., INT32_MIN}, {-2147483649., INT32_MIN}, {std::nan(""), INT32_MIN}};
    // clang-format on
    for (const auto& [text, number] : numbers) QCOMPARE(Val(Make(text)), number);
    for (const auto& [number, integer] : integers) QCOMPARE(RuntimeCvtReal64ToSInt32(number), integer);
  }

  void arrayRemovesLikeAPlainOne() {
    StringArray array;
    std::vector<std::string> plain;
    for (int i = 0; i < 500; ++i) {
      plain.push_back(std::to_string(i));
      array.Append(Make(plain.back()));
    }
    for (unsigned step = 1; !plain.empty(); step = step * 1103515245 + 12345) {
      const auto at = static_cast<int>(step / 65536 % plain.size());
      plain.erase(plain.begin() + at);
      array.Remove(at);
      QCOMPARE(array.UpperBound() + 1, static_cast<int>(plain.size()));
      for (int i = 0; i <= array.UpperBound(); ++i) QCOMPARE(Text(array.Get(i)), plain[static_cast<size_t>(i)]);
    }
    QVERIFY_THROWS_EXCEPTION(OutOfBoundsException, array.Get(0));
  }

  void binaryStreamWritesWhereItStands() {
    const QString path = WriteFile(folder_.filePath("out"), std::string(200000, 'x'));
    std::string expected;
    {
      const Ref<BinaryStream> stream = At(path).CreateBinaryFile(OutputType());
      stream->WriteShort(2056), stream->WriteLong(78), stream->WriteByte(0x1FF);
      stream->LittleEndian(true);
      stream->WriteShort(0x10203), stream->WriteLong(-2), stream->WriteByte(1);
      QCOMPARE(stream->Position(), std::uint64_t{14});
      expected = std::string("\x08\x08\0\0\0\x4E\xFF\x03\x02\xFE\xFF\xFF\xFF\x01", 14);
      for (const int size : {71, 65536, 1, 70000, 65535, 3}) {  // around the size of the buffer
        const std::string piece(static_cast<size_t>(size), static_cast<char>('a' + size % 26));
        stream->Write(Make(piece));
        expected += piece;
      }
      for (const std::size_t back : {std::size_t{31}, expected.size() - 2, std::size_t{70000}}) {
        stream->Position(back);
        stream->WriteByte('!');
        expected[back] = '!';
        QCOMPARE(stream->Position(), back + 1);
      }
    }  // the last reference closes the file
    QVERIFY(ReadFile(path) == expected);
  }

  void textFilesAreReadAsPeopleWriteThem() {
    const std::string letters = "Ö\u00a0\U0001F6F0";
    for (const std::string& bytes :
         {std::string("plain"), "\xEF\xBB\xBF" + letters, letters, std::string("M\xFCnchen \x80\x81"),
          std::string("\xFF\xFE\xD6\0\x3D\xD8\xF0\xDE\x0A\0\x00\xDC", 12),
          std::string("\xFE\xFF\0\xD6\xD8\x3D\xDE\xF0\xD8\x00\0A\0", 13), std::string("a\0b", 3),
          std::string("\xEF\xBB\xBF\xFF"), std::string("\xF4\x90\x80\x80"), QString("é").repeated(3000).toStdString(),
          std::string(70, 'a') + '\xE9' + std::string(70, 'a'), std::string("\xFF\xFE\xAC"),
          std::string("\xED\xA0\x80 \xC0\x80"), std::string("\xEF\xBB"), std::string()}) {
      const String text = At(WriteFile(folder_.filePath("in.txt"), bytes)).OpenAsTextFile()->ReadAll();
      QCOMPARE(Text(ReplaceLineEndings(text, "\n"_s)), model::TextOfFile(bytes));
    }
    const auto stream = At(WriteFile(folder_.filePath("in.txt"), "one\r\n\rthree\nfour")).OpenAsTextFile();
    for (const char* line : {"one", "", "three"}) QCOMPARE(Text(stream->ReadLine()), line);
    QCOMPARE(Text(stream->ReadAll()), "four");
  }

  void whatIsNoFileGivesNoStream() {
    const QString path = folder_.filePath("a.txt");
    const std::string name = path.toStdString();
    const auto fails = [&](const char* done, const char* reason) {
      QCOMPARE(WhyNil([&] {
                 *done == 'o' ? At(path).OpenAsTextFile()->Close() : At(path).CreateBinaryFile(OutputType())->Close();
               }),
               "“" + name + "” could not be " + done + ": " + reason + ".");
    };
    fails("opened", "No such file or directory");
    QVERIFY(QDir().mkdir(path));
    fails("opened", "Is a directory");
    fails("created", "Is a directory");
    At(path).Delete();
    QVERIFY(QDir().rmdir(path));  // for it is still there
    At(path).Delete();            // of nothing: no error
    QCOMPARE(mkfifo(name.c_str(), 0600), 0);
    fails("opened", "It is not a file");
    fails("created", "It is not a file");
    At(path).Delete();
    QCOMPARE(symlink("/", name.c_str()), 0);
    At(path).Delete();  // of the link
    QCOMPARE(symlink("/dev/zero", name.c_str()), 0);
    fails("opened", "It is not a file");
    At(path).Delete();
    QCOMPARE(symlink("nowhere", name.c_str()), 0);
    fails("opened", "No such file or directory");
    At(path).CreateBinaryFile(OutputType())->Close();  // through the link
    QVERIFY(QFile::exists(folder_.filePath("nowhere")));
    FolderItem("/dev/full").CreateBinaryFile(OutputType())->Write(Make(std::string(99999, 'x')));  // is not reported
    QFile sparse(path);
    QVERIFY(sparse.open(QIODevice::ReadWrite) && sparse.resize(3LL << 30));
    fails("opened", "It is too large");
  }

 private:
  QTemporaryDir folder_;
};

QTEST_APPLESS_MAIN(TestServices)
#include "test_services.moc"
