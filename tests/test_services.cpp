// The base of the framework: strings, arrays, files and streams.
#include <sys/stat.h>
#include <unistd.h>

#include <QTest>
#include <cmath>

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
    QCOMPARE(LenB("é"_s), 2);
    QCOMPARE(Asc("R"_s), 0x52);
    QCOMPARE(RuntimeStringCompare(Trim("  \t "_s), ""_s), 0);
    QVERIFY(RuntimeStringCompare("a"_s, ""_s) != 0);
    QCOMPARE(Text(Trim("\xC2\xA0 é x\u3000\v\u2003"_s)), "é x");
    QCOMPARE(Text(Trim("\xC2\xA1 \xA0"_s)), "\xC2\xA1 \xA0");  // bytes of a blank that are none
    QCOMPARE(Text(ReplaceLineEndings("\ra\r\nb\n\n\rc\r"_s, "\n"_s)), "\na\nb\n\n\nc\n");
    QCOMPARE(Text(ReplaceLineEndings("a\r\r\nb\n"_s, "\r\n"_s)), "a\r\n\r\nb\r\n");
  }

  void splitKeepsEmptyPieces() {
    for (const auto& [text, pieces] : std::vector<std::pair<std::string, std::vector<std::string>>>{
             {"", {""}}, {"a", {"a"}}, {"a\n\nb", {"a", "", "b"}}, {"\n", {"", ""}}, {"a\r\nb\n", {"a\r", "b", ""}}}) {
      const Ref<StringArray> split = Split(Make(text), EndOfLine());
      QCOMPARE(split->UpperBound() + 1, static_cast<int>(pieces.size()));
      for (int i = 0; i <= split->UpperBound(); ++i) QCOMPARE(Text(split->Get(i)), pieces[static_cast<size_t>(i)]);
    }
  }

  void valReadsTheNumberAtTheStart_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("index");
    const auto row = [](const char* text, double value, int index) {
      QTest::newRow(text) << QByteArray(text) << value << index;
    };
    row("1", 1, 1), row("0", 0, 0), row(" \t1 0", 1, 1), row("1,5", 1, 1), row("1.5x", 1.5, 1), row("-1", -1, -1);
    row("+1", 1, 1), row(" -1", -1, -1), row("+-1", 0, 0), row("", 0, 0), row("-", 0, 0), row(".", 0, 0),
        row("-.5", -.5, 0);
    row("words", 0, 0), row("nan", 0, 0), row("inf", 0, 0), row("-inf", 0, 0), row("0x1", 0, 0), row("1e", 1, 1),
        row("1e0x", 1, 1);
    row("2147483647.5", 2147483647.5, INT32_MAX), row("2147483648", 2147483648., INT32_MIN),
        row("-2147483649", -2147483649., INT32_MIN);
    row("1e400", HUGE_VAL, INT32_MIN), row("-1e400", -HUGE_VAL, INT32_MIN), row("1e-400", 0, 0);
  }
  void valReadsTheNumberAtTheStart() {
    QFETCH(QByteArray, text);
    const double value = Val(Make(text.toStdString()));
    QCOMPARE(value, *static_cast<double*>(QTest::qData("value", QMetaType::Double)));
    QCOMPARE(RuntimeCvtReal64ToSInt32(value), *static_cast<int*>(QTest::qData("index", QMetaType::Int)));
    QCOMPARE(RuntimeCvtReal64ToSInt32(std::nan("")), INT32_MIN);
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
          std::string("\xEF\xBB\xBF\xFF"), std::string("\xF4\x90\x80\x80"), std::string(5000, '\xE9'),
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
    const auto open = [&] { return WhyNil([&] { At(path).OpenAsTextFile()->ReadAll(); }); };
    const auto create = [&] { return WhyNil([&] { At(path).CreateBinaryFile(OutputType())->Close(); }); };
    QCOMPARE(open(), "“" + name + "” could not be opened: No such file or directory.");
    QVERIFY(QDir().mkdir(path));
    QCOMPARE(open(), "“" + name + "” could not be opened: Is a directory.");
    QCOMPARE(create(), "“" + name + "” could not be created: Is a directory.");
    At(path).Delete();
    QVERIFY(At(path).Directory());  // a folder is left alone
    QVERIFY(QDir().rmdir(path));
    At(path).Delete();  // of nothing: no error

    QCOMPARE(mkfifo(name.c_str(), 0600), 0);
    QCOMPARE(open(), "“" + name + "” could not be opened: It is not a file.");
    QCOMPARE(create(), "“" + name + "” could not be created: It is not a file.");
    At(path).Delete();
    QVERIFY(!At(path).Exists());
    QCOMPARE(symlink("/dev/zero", name.c_str()), 0);
    QCOMPARE(open(), "“" + name + "” could not be opened: It is not a file.");
    At(path).Delete();
    QCOMPARE(symlink("nowhere", name.c_str()), 0);
    QCOMPARE(open(), "“" + name + "” could not be opened: No such file or directory.");
    At(path).CreateBinaryFile(OutputType())->Close();  // through the link
    QVERIFY(QFile::exists(folder_.filePath("nowhere")));

    QFile sparse(path);
    QVERIFY(sparse.open(QIODevice::ReadWrite) && sparse.resize(3LL << 30));
    QCOMPARE(open(), "“" + name + "” could not be opened: It is too large.");
  }

  void aFailingWriteIsNotReported() {
    const Ref<BinaryStream> stream = FolderItem("/dev/full").CreateBinaryFile(OutputType());
    for (int i = 0; i < 2000; ++i) stream->Write(Make(std::string(71, 'x')));
    QCOMPARE(stream->Position(), std::uint64_t{142000});
    stream->Close();
  }

 private:
  QTemporaryDir folder_;
};

QTEST_APPLESS_MAIN(TestServices)
#include "test_services.moc"
