// Texts and arrays of them.
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

  void everyOccurrenceIsReplacedOnce() { QCOMPARE(Bytes(ReplaceAll("aaabaa"_s, "aa"_s, "-aa"_s)), "-aaab-aa"); }

  void splitKeepsEveryPiece() {
    QCOMPARE(Elements(*Split(""_s, "--"_s)), QByteArrayList({""}));
    QCOMPARE(Elements(*Split("--a----b---"_s, "--"_s)), QByteArrayList({"", "a", "", "b", "-"}));
  }

  void whatIsRemovedIsGoneAndTheRestStays() {
    QRandomGenerator random(1);  // always the same places
    QByteArrayList expected;
    for (int i = 0; i < 200; ++i) expected += QByteArray::number(i);
    const Ref<StringArray> array = Split(Text(expected.join(',')), ","_s);
    while (!expected.isEmpty()) {
      const auto set = random.bounded(expected.size()), removed = random.bounded(expected.size());
      array->Set(static_cast<int>(set), Text(expected[set] += " changed"));
      array->Remove(static_cast<int>(removed));
      expected.remove(removed);
      QCOMPARE(Elements(*array), expected);
    }
  }

  void impossibleArgumentsRaiseErrors() {
    const Ref<StringArray> array = Split("a,b"_s, ","_s);
    QCOMPARE(ErrorOf([&] { array->Get(-1); }), "There is no element -1 in an array that ends at 1.");
    QCOMPARE(ErrorOf([&] { array->Remove(2); }), "There is no element 2 in an array that ends at 1.");
    QCOMPARE(ErrorOf([] { Chr(128); }), "There is no element 128 in an array that ends at 127.");
    QCOMPARE(ErrorOf([] { Ref<StringArray>()->Get(0); }), "Internal error: an object that does not exist was used.");
    QCOMPARE(ErrorOf([] { String::Build(String::kMaxSize + 1, nullptr); }), "The text is too long.");
  }

  void valReadsTheNumberAtTheStart_data() {
    AddRows({{"white space before it", " \t\u00A01 0", "1"},
             {"a point", "-.5,5", "-0.5"},
             {"a plus and an exponent", "+12e1x", "120"},
             {"two signs", "+-1", "0"},
             {"a word with a sign", "-inf1", "0"},
             {"a hexadecimal one", "0x1", "0"},
             {"too large", "1e400", "0"}});
  }
  void valReadsTheNumberAtTheStart() {
    QFETCH(const QByteArray, in);
    QTEST(QByteArray::number(Val(Text(in))), "out");
  }

  void aNumberThatNoInt32HoldsIsTheLeastOne() {
    QCOMPARE(RuntimeCvtReal64ToSInt32(2147483647.5), INT32_MAX);
    QCOMPARE(RuntimeCvtReal64ToSInt32(2147483648.), INT32_MIN);
    QCOMPARE(RuntimeCvtReal64ToSInt32(qQNaN()), INT32_MIN);
  }

 private:
  static QByteArrayList Elements(const StringArray& array) {
    QByteArrayList elements;
    for (int i = 0; i <= array.UpperBound(); ++i) elements += Bytes(array.Get(i));
    return elements;
  }
};

QTEST_APPLESS_MAIN(TestString)
#include "test_string.moc"
