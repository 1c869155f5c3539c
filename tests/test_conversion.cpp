// From a text to both files, byte for byte.
#include "app/file_types.h"
#include "core/element_file.h"
#include "core/element_lines.h"
#include "services/base/background_task.h"
#include "services/base/folder_item.h"
#include "tests/files.h"
#include "tests/model.h"

using namespace celestrix;

namespace {

std::string Line(std::size_t width, char letter = 'x') { return std::string(width, letter); }
std::string Hex(const char* digits) { return QByteArray::fromHex(digits).toStdString(); }

}  // namespace

class TestConversion : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { FileTypes1::_Initialize(); }

  void filesAreRightToTheByte() {
    const std::string set = "ALPHA\n" + Line(69, '1') + "\n" + Line(70, '2') + "\n";
    const std::string record = "ALPHA" + Line(66, '\0') + Line(69, '1') + Line(2, '\0') + Line(70, '2') + Line(1, '\0');
    const std::string palm =
        Hex("43656C65737472697820536174656C6C 69746500000000000000000000000000 08080003BBF81E02BBF81E02BBF81E02"
            "000000000000000000000000706C3132 525A5134000000000000000000010000 005600000000");
    QCOMPARE(Saved(set, true), palm + record);
    QCOMPARE(Saved(set, false), Hex("18000000 32316C70 01000000 D5000000") + record);
  }

  void everyTextIsSavedAsTheModelSaysIt() {
    const std::string kept = Line(71) + "\n";
    std::string many;
    for (int i = 0; i < 3 * 65537; ++i) many += i % 2 == 0 ? "even\n" : "odd\n \n";
    // clang-format off
    const std::pair<const char*, std::string> texts[] = {
        {"no line", "\n\n"},
        {"one line too many", kept + kept + kept + Line(72) + "\n" + kept},
        {"spaces push a line past the width", Line(69) + "   \n" + kept + kept + kept},
        {"spaces are kept otherwise", "  " + Line(60) + "\n" + Line(60) + " \t\n" + kept},
        {"a carriage return is part of its line", "\t \n \v\f\n" + kept + "\r\n" + kept + "a\r\nb\r\n"},
        {"bytes count", Line(69) + "é\n" + Line(68) + "éé\n" + Line(69) + "éé\n" + kept + kept},
        {"blanks of web pages", "\u00A0\u2003\n\u200B\n\u3000x\n\u00A0\nlast"},
        {"NUL is no blank", std::string("a\0b\n\0\nc", 7) + "\n" + kept},
        {"more sets than the Palm count holds", many}};
    // clang-format on
    for (const auto& [name, text] : texts) {
      QVERIFY2(Saved(text, true) == model::SavedFile(text, true), name);
      QVERIFY2(Saved(text, false) == model::SavedFile(text, false), name);
    }
  }

  void everyPassYieldsOnce() {
    int yields = 0;
    BackgroundTask::Install([&yields] {
      RuntimeBackgroundTask();      // does nothing within the task
      return ++yields < 5 ? 2 : 1;  // so four passes are left out
    });
    Saved("abc\n\n" + Line(71) + "\n" + Line(72) + "\n" + Line(70) + "\n", true);
    BackgroundTask::Install(nullptr);
    QCOMPARE(yields,
             6 + 68 + 1 + 3 + 12 + 1 - 4);  // lines, NUL bytes, lines of the data area; the name's NUL bytes, list
  }

 private:
  std::string Saved(const std::string& text, bool palm) {
    const Ref<BinaryStream> stream = FolderItem(path_.toStdString()).CreateBinaryFile(*FileTypes1::PDBFile());
    stream->LittleEndian(palm);  // the other format's order, which must not matter
    const auto format = palm ? ElementFileFormat::kPalmDatabase : ElementFileFormat::kPocketPcFile;
    WriteElementFile(stream, ElementLines(String(text)), format);
    stream->Close();
    return ReadFile(path_);
  }

  QTemporaryDir folder_;
  QString path_ = folder_.filePath("file");
};

QTEST_APPLESS_MAIN(TestConversion)
#include "test_conversion.moc"
