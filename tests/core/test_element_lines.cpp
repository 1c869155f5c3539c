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
             {"68 bytes and four spaces: dropped", x68 + "    ", "dropped"},
             {"69 bytes between a space and a CR: kept", " x" + x68 + "\r", " x" + x68 + "\r"},
             {"70 characters, two of two bytes: dropped", "éé" + x68, "dropped"},
             {"white space: dropped", " \t\u3000", "dropped"}});
  }
  void aLineFillsItsSlotOrIsDropped() {
    QFETCH(const QByteArray, in);
    const Ref<StringArray> lines = ElementLines(Text(in));
    QTEST(lines->UpperBound() < 0 ? "dropped" : Bytes(lines->Get(0)), "out");
  }
};

QTEST_APPLESS_MAIN(TestElementLines)
#include "test_element_lines.moc"
