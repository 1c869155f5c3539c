// From a text to both files, byte for byte.

#include "core/element_lines.h"
#include "core/palm_database.h"
#include "core/pocket_pc_file.h"
#include "services/base/background_task.h"
#include "services/base/file_type.h"
#include "services/base/folder_item.h"
#include "tests/files.h"
#include "tests/model.h"

using namespace celestrix;

namespace {

String Make(const std::string& text) { return String(std::string_view(text)); }
std::string Line(int width, char letter = 'x') { return std::string(static_cast<size_t>(width), letter); }

}  // namespace

class TestConversion : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    type_.Name = "Output"_s;
    QVERIFY(folder_.isValid());
  }

  void filesAreRightToTheByte() {
    const std::string set = "ALPHA\n" + Line(69, '1') + "\n" + Line(69, '2') + "\n";
    const std::string record =
        "ALPHA" + std::string(66, '\0') + Line(69, '1') + std::string(2, '\0') + Line(69, '2') + std::string(2, '\0');
    const QByteArray palm = QByteArray::fromHex(
        "43656C65737472697820536174656C6C 69746500000000000000000000000000 08080003BBF81E02BBF81E02BBF81E02"
        "000000000000000000000000706C3132 525A5134000000000000000000010000 005600000000");
    const QByteArray pocket = QByteArray::fromHex("18000000 32316C70 01000000 D5000000");
    QCOMPARE(Saved(set, true), palm.toStdString() + record);
    QCOMPARE(Saved(set, false), pocket.toStdString() + record);
    QCOMPARE(Saved("", true).size(), size_t{78});
    QCOMPARE(Saved("", false).size(), size_t{16});
    QCOMPARE(Saved(set + "\n" + set, true).substr(76, 18),  // two records, at 94 and 307
             QByteArray::fromHex("0002 0000005E00000000 0000013300000000").toStdString());
  }

  void everyTextIsSavedAsTheModelSaysIt() {
    const std::string kept = Line(71) + "\n";
    std::string many;  // more sets than the Palm file's count holds
    for (int i = 0; i < 3 * 65537; ++i) many += i % 2 == 0 ? "even\n" : "odd\n \n";
    for (const std::string& text :
         {many, std::string("\n\n"), kept, kept + kept + kept + Line(72) + "\n" + kept, kept + kept + Line(70) + "\n",
          Line(69) + "   \n" + kept + kept + kept,                    // white space pushes it past the width
          "  " + Line(60) + "\n" + Line(60) + " \t\n" + kept,         // and is kept otherwise
          "\t \n \v\f\n" + kept + "\r\n" + kept + "a\r\nb\r\nc\r\n",  // a carriage return is part of its line
          Line(69) + "é\n" + Line(68) + "éé\n" + Line(69) + "éé\n" + kept + kept,
          std::string("\u00A0\u2003\n\u200B\n\u3000x\n\u00A0\n\u0085\u1680\u2000\u200A\u2028\u2029\u202F\u205F\nlast"),
          std::string("a\0b\n\0\nc", 7) + "\n" + kept, kept + kept + kept + kept + kept + kept + kept + "\n \n"}) {
      QVERIFY(Saved(text, true) == model::SavedFile(text, true));
      QVERIFY(Saved(text, false) == model::SavedFile(text, false));
    }
  }

  void databaseNameIsFittedToItsField() {
    for (const int length : {0, 19, 30, 31, 32, 33, 50}) {
      const QString path = folder_.filePath("name");
      const Ref<BinaryStream> stream = At(path);
      WriteDatabaseName(stream, Make(Line(length, 'n')));
      QCOMPARE(stream->Position(), std::uint64_t{32});
      stream->Close();
      const std::string field =
          Line(std::min(length, 31), 'n') + std::string(static_cast<size_t>(32 - std::min(length, 31)), '\0');
      QCOMPARE(ReadFile(path).substr(0, 32), field);
    }
  }

  void everyPassYieldsOnce() {
    const std::string text =
        "abc\n\n" + Line(71) + "\n" + Line(72) + "\n" + Line(70) + "\n";  // 6 lines, 68 + 1 bytes added
    int yields = 0;
    BackgroundTask::Install([&yields] { return ++yields, 1; });
    Saved(text, false);
    QCOMPARE(yields, 6 + 69 + 3);
    yields = 0;
    Saved(text, true);
    QCOMPARE(yields, 6 + 69 + 12 + 1 + 3);  // and 12 bytes of the name field, 1 list entry
    BackgroundTask::Install(nullptr);
  }

 private:
  Ref<BinaryStream> At(const QString& path) { return FolderItem(path.toStdString()).CreateBinaryFile(type_); }

  std::string Saved(const std::string& text, bool palm) {
    const QString path = folder_.filePath("saved");
    const Ref<BinaryStream> stream = At(path);
    stream->LittleEndian(!palm);
    const Ref<StringArray> lines = ElementLines(Make(text));
    palm ? WritePalmDatabase(stream, lines) : WritePocketPcFile(stream, lines);
    stream->Close();
    return ReadFile(path);
  }

  FileType type_;
  QTemporaryDir folder_;
};

QTEST_APPLESS_MAIN(TestConversion)
#include "test_conversion.moc"
