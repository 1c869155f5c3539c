#include "services/base/string.h"

#include "services/base/string_array.h"
#include "tests/files.h"

using namespace celestrix;

class TestString : public QObject {
  Q_OBJECT

 private slots:
  void trimTakesAllWhiteSpaceOffBothEnds() {
    for (char16_t c = 1; c < 0xD800; ++c) {
      const QString ends(2, c), text = ends + "a " + c + " z" + ends;
      QVERIFY2(Bytes(Trim(Text(text.toUtf8()))) == text.trimmed().toUtf8(), "U+" + QByteArray::number(c, 16));
    }
  }

  void lineEndingsOfAllKindsAreReplaced_data() {
    AddRows({{"none", "a", "a"},
             {"one of each kind", "\ra\nb\r\nc", "\r\na\r\nb\r\nc"},
             {"blank lines of all kinds", "a\n\n\r\r\r\n\r\nb", "a\r\n\r\n\r\n\r\n\r\n\r\nb"}});
  }
  void lineEndingsOfAllKindsAreReplaced() {
    QFETCH(const QByteArray, in);
    QTEST(Bytes(ReplaceLineEndings(Text(in), "\r\n"_s)), "out");
  }

  void everyOccurrenceIsReplacedOnce() { QCOMPARE(Bytes(ReplaceAll("aaabaa"_s, "aa"_s, "-aa"_s)), "-aaab-aa"); }

  void aSliceReachesOverTheSeamOfASum() { QCOMPARE(Bytes(RuntimeAddString("line"_s, "AB"_s).Slice(3, 2)), "eA"); }

  void aCharacterIsOneByte() {
    QCOMPARE(Bytes(RuntimeAddString(Chr(127), Chr(0))), QByteArray("\x7F\0", 2));
    QCOMPARE(ErrorOf([] { Chr(128); }), "There is no element 128 in an array that ends at 127.");
    QCOMPARE(Asc(""_s), 0);
  }

  void aTextThatIsTooLongIsRefused() {
    QCOMPARE(ErrorOf([] { String::Build(String::kMaxSize + 1, nullptr); }), "The text is too long.");
  }

  void valReadsTheNumberAtTheStart_data() {
    AddRows({{"white space before it", " \t\u00A01 0", "1"},
             {"a point", "-.5,5", "-0.5"},
             {"a plus", "+1x", "1"},
             {"two signs", "+-1", "0"},
             {"an exponent", "12e1", "120"},
             {"an exponent that is none", "1east", "1"},
             {"an exponent without its number", "1E+", "1"},
             {"nothing", "", "0"},
             {"a sign and a point", "-.", "0"},
             {"a word", "nan", "0"},
             {"a word with a sign", "-inf1", "0"},
             {"a hexadecimal one", "0x1", "0"},
             {"too large", "1e400", "0"},
             {"too small", "1e-400", "0"}});
  }
  void valReadsTheNumberAtTheStart() {
    QFETCH(const QByteArray, in);
    QTEST(QByteArray::number(Val(Text(in))), "out");
  }

  void aNumberThatNoInt32HoldsIsTheLeastOne() {
    QCOMPARE(RuntimeCvtReal64ToSInt32(-.5), 0);
    QCOMPARE(RuntimeCvtReal64ToSInt32(2147483647.5), INT32_MAX);
    QCOMPARE(RuntimeCvtReal64ToSInt32(2147483648.), INT32_MIN);
    QCOMPARE(RuntimeCvtReal64ToSInt32(-2147483647.5), -INT32_MAX);
    QCOMPARE(RuntimeCvtReal64ToSInt32(-2147483649.), INT32_MIN);
    QCOMPARE(RuntimeCvtReal64ToSInt32(qQNaN()), INT32_MIN);
  }
};

QTEST_APPLESS_MAIN(TestString)
#include "test_string.moc"
