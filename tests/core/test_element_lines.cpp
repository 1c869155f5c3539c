#include "core/element_lines.h"

#include "tests/files.h"

using namespace celestrix;

class TestElementLines : public QObject {
  Q_OBJECT

 private slots:
  void aLineFillsItsSlotOrIsDropped_data() {
    const QByteArray x68(68, 'x'), x71 = x68 + "xxx";
    AddRows({{"1 byte: 70 NUL bytes", "x", "x" + QByteArray(70, '\0')},
             {"71 bytes: kept", x71, x71},
             {"72 bytes: dropped", x71 + "x", "dropped"},
             {"spaces at the ends: kept", "  " + x68 + " ", "  " + x68 + " "},
             {"68 bytes and four spaces: dropped", x68 + "    ", "dropped"},
             {"69 characters, two of two bytes: kept", "éé" + x68.chopped(1), "éé" + x68.chopped(1)},
             {"70 characters, two of two bytes: dropped", "éé" + x68, "dropped"},
             {"empty: dropped", "", "dropped"},
             {"a space, a tab and a space of another script: dropped", " \t\u3000", "dropped"},
             {"a NUL character: kept", QByteArray(1, '\0'), QByteArray(71, '\0')}});
  }
  void aLineFillsItsSlotOrIsDropped() {
    QFETCH(const QByteArray, in);
    const Ref<StringArray> lines = ElementLines(Text(in));
    QTEST(lines->UpperBound() < 0 ? "dropped" : Bytes(lines->Get(0)), "out");
  }
};

QTEST_APPLESS_MAIN(TestElementLines)
#include "test_element_lines.moc"
