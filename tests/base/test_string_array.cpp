#include "services/base/string_array.h"

#include "tests/files.h"

using namespace celestrix;

class TestStringArray : public QObject {
  Q_OBJECT

 private slots:
  void splitKeepsEveryPiece() {
    QCOMPARE(Elements(*Split(""_s, "--"_s)), QByteArrayList({""}));
    QCOMPARE(Elements(*Split("--a----b---"_s, "--"_s)), QByteArrayList({"", "a", "", "b", "-"}));
  }

  void whatIsRemovedIsGoneAndTheRestStays() {
    QRandomGenerator random(1);  // always the same places
    QByteArrayList expected;
    for (int i = 0; i <= 200; ++i) expected += "element " + QByteArray::number(i);
    const Ref<StringArray> array = Split(Text(expected.join(',')), ","_s);
    for (int last = 200; last >= 0; --last) {
      const int set = random.bounded(last + 1), removed = random.bounded(last + 1);
      array->Set(set, Text(expected[set] += " changed"));
      array->Remove(removed);
      expected.remove(removed);
      QCOMPARE(Elements(*array), expected);
    }
  }

  void anElementThatIsNotThereIsNotUsed() {
    const Ref<StringArray> array = Split("a,b"_s, ","_s);
    QCOMPARE(ErrorOf([&] { array->Get(-1); }), "There is no element -1 in an array that ends at 1.");
    QCOMPARE(ErrorOf([&] { array->Remove(2); }), "There is no element 2 in an array that ends at 1.");
  }

 private:
  static QByteArrayList Elements(const StringArray& array) {
    QByteArrayList elements;
    for (int i = 0; i <= array.UpperBound(); ++i) elements += Bytes(array.Get(i));
    return elements;
  }
};

QTEST_APPLESS_MAIN(TestStringArray)
#include "test_string_array.moc"
