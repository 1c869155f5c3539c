// How texts get into the field: drops, long lines, and what happens while a long text loads.
#include "tests/window/fixture.h"

namespace {

/// Lines of element sets, with a mark in front of each, as when files were joined together.
const QString kLongText =
    (QStringLiteral("\uFEFFSAT \U0001F6F0 é\n") + QString(71, '1') + "\n").repeated(12000) + "end";

}  // namespace

class TestTextField : public QObject {
  Q_OBJECT

 private slots:
  void longLinesAndMarksAreKept() {
    const QString mark = QChar(0xFEFF), longest = mark + QString(999'900, u'é');
    const QString text = mark + "a\n" + longest + "\n" + mark + QString(200'000, 'x');
    TestedWindow w;
    QCOMPARE(w.Drop(text), "copied");
    QCOMPARE(w.Text(), text);
    QTest::keyClick(w.txt, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(w.txt, Qt::Key_X);
    QCOMPARE(w.Text(), text + "x");
    const QString tooLong = "The text has a line that is longer than the field can hold.";
    const std::pair<QString, QString> refused[] = {
        {QString((1 << 22) + 1, '\n'), "The text has more lines than the field can hold."},
        {"a\n" + longest + "é", tooLong},
        {longest + "\n" + QString(1'000'001, 'x') + "\nb", tooLong}};
    for (const auto& [tooMuch, alert] : refused) {
      QCOMPARE(w.Drop(tooMuch), "copied");
      QCOMPARE(Differences(w.NextAlert(), {.text = alert}), "");
      QCOMPARE(w.Text(), text + "x");
    }
  }

  void whileATextLoads() {
    TestedWindow w;
    w.Drop(kLongText);
    QTest::mouseClick(w.txt->viewport(), Qt::LeftButton, {}, QPoint(30, 30));
    QTest::mouseDClick(w.txt->viewport(), Qt::LeftButton, {}, QPoint(30, 30));
    QCOMPARE(w.Text(), kLongText);
    QVERIFY(!w.IsWhole());  // it had nothing to wait for
    w.txt->setFocus();
    QTest::keyClick(w.txt, Qt::Key_X);
    w.Command("EditSelectAll")->trigger();
    QTest::keyClick(w.txt, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(w.Text(), "");
    QCOMPARE(QGuiApplication::clipboard()->text(), "x" + kLongText);  // no click has moved the cursor
    w.Drop(kLongText);
    QTest::keyClick(w.txt, Qt::Key_X);
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
      w.txt->setFocus();
      QTest::keyClick(w.txt, key);
      QCOMPARE(std::pair(key, QApplication::focusWidget() == w.txt), std::pair(key, false));
    }
    QVERIFY(!w.IsWhole());
    RuntimeWindowControlByName(w.window, "txt"_s).As<EditField>()->Text("short"_s);  // the key was for the text before
    QCOMPARE(w.Text(), "short");
  }

  void drops() {
    const QString path = WriteFile(folder_.filePath("Windows.TXT"), "a\r\nb\rc\n"), file = "file://" + path;
    const QString pdf = "file://" + WriteFile(folder_.filePath("x.pdf"), "x"), host = QSysInfo::machineHostName();
    // clang-format off
    const std::tuple<QString, QStringList, QString> rows[] = {
        {{}, {file, pdf}, "copied: a\nb\nc\n"},
        {"its name", {pdf, file}, "refused: before"},
        {"text", {"file://localhost" + path}, "copied: a\nb\nc\n"},
        {"text", {"file://" + host.toUpper() + path}, "copied: a\nb\nc\n"},
        {"far\r\noff", {"file://elsewhere" + path}, "copied: far\noff"},
        {"far", {"https://example.org/a.txt"}, "copied: far"},
        {{}, {"https://example.org/a.txt"}, "refused: before"},
        {{}, {}, "refused: before"}};
    // clang-format on
    TestedWindow w;
    for (const auto& [text, files, outcome] : rows) {
      const QString what = text + files.join(',') + ": ";
      w.Drop("before");
      const QString actual = w.Drop(text, files) + ": ";
      QCOMPARE(what + actual + w.Text(), what + outcome);
    }
    QCOMPARE(w.Drop("text", {}, Qt::MoveAction), "refused");
  }

 private:
  QTemporaryDir folder_;
};

int main(int argc, char** argv) { return RunTest<TestTextField>(argc, argv); }
#include "test_text_field.moc"
