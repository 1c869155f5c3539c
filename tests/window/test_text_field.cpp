// How texts get into the field: drops, pastes, keys, and what happens while a long text comes in.
#include "tests/window/fixture.h"

namespace {

/// Lines of element sets, with a mark in front of each, as when files were joined together.
const QString kLongText =
    (QStringLiteral("\uFEFFSAT \U0001F6F0 é\n") + QString(71, '1') + "\n").repeated(12000) + "end";

void CopyElsewhere(const QString& text) { QGuiApplication::clipboard()->setText(text); }

}  // namespace

class TestTextField : public QObject {
  Q_OBJECT

 private slots:
  void init() { w_ = std::make_unique<TestedWindow>(); }
  void cleanup() { w_.reset(); }

  // ---- Drops

  void drops_data() {
    const QString path = WriteFile(folder_.filePath("Windows.TXT"), "a\r\nb\rc\n"), file = "file://" + path;
    const QString pdf = "file://" + WriteFile(folder_.filePath("x.pdf"), "x"), host = QSysInfo::machineHostName();
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("addresses");
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const QString& text, const QStringList& addresses, const QString& shown) {
      const bool refused = shown == "before";
      QTest::newRow(name) << text << addresses << (refused ? "refused" : "copied") << shown;
    };
    row("a text", "SAT A\r\n1\r2\n", {}, "SAT A\n1\n2\n");
    row("of two files, the first", {}, {file, pdf}, "a\nb\nc\n");
    row("a file of another type, though it has a name as text", "its name", {pdf, file}, "before");
    row("a file before text", "text", {"file://localhost" + path}, "a\nb\nc\n");
    row("a file of this machine by its name", "text", {"file://" + host.toUpper() + path}, "a\nb\nc\n");
    row("a file of another machine is text", "far\r\noff", {"file://elsewhere" + path}, "far\noff");
    row("an address is text", "far", {"https://example.org/a.txt"}, "far");
    row("an address without text", {}, {"https://example.org/a.txt"}, "before");
    row("nothing", {}, {}, "before");
  }

  void drops() {
    QFETCH(QString, text);
    QFETCH(QStringList, addresses);
    w_->Drop("before");
    QTEST(w_->Drop(text, addresses), "outcome");
    QTEST(w_->Text(), "shown");
  }

  void aDropThatOnlyMovesIsRefused() { QCOMPARE(w_->Drop("text", {}, Qt::MoveAction), "refused"); }

  void aTextThatDoesNotArriveChangesNothing() {
    w_->Drop("before");
    QCOMPARE(w_->Drop(""), "refused on the way");
    CopyElsewhere("");
    w_->txt->selectAll();
    QTest::keyClick(w_->txt, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(w_->Text(), "before");
    QCOMPARE(w_->txt->textCursor().selectedText(), "before");
  }

  // ---- Copying and pasting

  void textIsOfferedWithAndWithoutItsEncoding() {
    w_->Drop("é\nb");
    w_->txt->selectAll();
    w_->txt->copy();
    const QMimeData* const copied = QGuiApplication::clipboard()->mimeData();
    for (const char* format : {"text/plain", "text/plain;charset=utf-8"})
      QCOMPARE(QString::fromUtf8(copied->data(format)), "é\nb");
  }

  void textWithItsEncodingAloneIsText() {
    auto* mime = new QMimeData;
    mime->setData("text/plain;charset=utf-8", "é");
    QGuiApplication::clipboard()->setMimeData(mime);
    QVERIFY(w_->Command("EditPaste")->isEnabled());
    w_->txt->paste();
    QCOMPARE(w_->Text(), "é");
  }

  void deletingLeavesTheClipboard() {
    w_->Drop("text");
    CopyElsewhere("copied");
    w_->txt->selectAll();
    w_->Command("EditClear")->trigger();
    QCOMPARE(w_->Text(), "");
    QCOMPARE(QGuiApplication::clipboard()->text(), "copied");
  }

  void aPasteTakesThePlaceOfTheSelectionAsOneStep() {
    w_->Drop("before [selected\nlines] after");
    QTextCursor selection = w_->txt->textCursor();
    selection.setPosition(7);
    selection.setPosition(23, QTextCursor::KeepAnchor);
    w_->txt->setTextCursor(selection);
    CopyElsewhere(kLongText);
    QTest::keyClick(w_->txt, Qt::Key_V, Qt::ControlModifier);
    const QString pasted = "before " + kLongText + " after";
    QCOMPARE(w_->Text(), pasted);
    QVERIFY(!w_->IsWhole());  // what it will be is told before it is shown
    QTRY_VERIFY(w_->IsWhole());
    QCOMPARE(w_->Text(), pasted);
    QCOMPARE(w_->txt->textCursor().position(), 7 + kLongText.size());
    QVERIFY(w_->txt->viewport()->rect().contains(w_->txt->cursorRect()));
    w_->Command("EditUndo")->trigger();
    QCOMPARE(w_->Text(), "before [selected\nlines] after");
    QVERIFY(!w_->Command("EditUndo")->isEnabled());
    w_->txt->redo();
    QCOMPARE(w_->Text(), pasted);
  }

  void anEditWhileAPasteComesInKeepsItsPlace() {
    w_->Drop("before after");
    w_->txt->moveCursor(QTextCursor::NextWord);
    CopyElsewhere(kLongText);
    w_->txt->paste();
    QTextCursor client(w_->txt->document());
    client.insertText("first ");
    client.movePosition(QTextCursor::End);
    client.insertText(" last");
    QVERIFY(!w_->IsWhole());
    const QString expected = "first before " + kLongText + "after last";
    QCOMPARE(w_->Text(), expected);
    QTRY_VERIFY(w_->IsWhole());
    QCOMPARE(w_->Text(), expected);
  }

  // ---- What does not fit

  void limits_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("alert");
    const QString none, tooLong = "The text has a line that is longer than the field can hold.";
    QTest::newRow("a long line of plain characters") << "a\n" + QString(999'998, u'é') + "\nb" << none;
    QTest::newRow("too long by one") << "a\n" + QString(1'000'001, u'é') + "\nb" << tooLong;
    QTest::newRow("too long by what stands before it") << QString(1'000'000, 'x') + "\nb" << tooLong;
    QTest::newRow("too long by what stands behind it") << "a\n" + QString(1'000'000, 'x') << tooLong;
    QTest::newRow("a line of marks") << "a\n" + QString(10'000, QChar(0x301)) + "\nb" << none;
    QTest::newRow("too many marks in it") << "a\n" + QString(10'001, QChar(0x301)) + "\nb" << tooLong;
    QTest::newRow("too many lines") << QString((1 << 22) + 1, '\n')
                                    << "The text has more lines than the field can hold.";
  }

  void limits() {
    QFETCH(QString, text);
    QFETCH(QString, alert);
    w_->Drop("<>");
    w_->txt->moveCursor(QTextCursor::Right);
    CopyElsewhere(text);
    QTest::keyClick(w_->txt, Qt::Key_V, Qt::ControlModifier);
    if (!alert.isNull()) QCOMPARE(w_->NextAlert().text, alert);
    QCOMPARE(w_->Text(), alert.isNull() ? "<" + text + ">" : "<>");
    const QString whole = "<" + text + ">";
    QCOMPARE(w_->Drop(whole), "copied");
    if (!alert.isNull()) QCOMPARE(w_->NextAlert().text, alert);
    QCOMPARE(w_->Text(), alert.isNull() ? whole : "<>");
  }

  // ---- Keys, and what waits

  void shiftWithReturnEndsTheLine_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Return") << Qt::Key_Return << Qt::KeyboardModifiers(Qt::ShiftModifier);
    QTest::newRow("Enter") << Qt::Key_Enter << (Qt::ShiftModifier | Qt::KeypadModifier);
  }

  void shiftWithReturnEndsTheLine() {
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QTest::keyClicks(w_->txt, "SAT A");
    QTest::keyClick(w_->txt, key, modifiers);
    QTest::keyClicks(w_->txt, "1");
    QCOMPARE(w_->Text(), "SAT A\n1");
  }

  void aLineSeparatorThatComesWithATextStays() {
    w_->Drop(QStringLiteral("a\u2028b\u2029c"));
    QCOMPARE(w_->Text(), QStringLiteral("a\u2028b\nc"));
    QTest::keyClick(w_->txt, Qt::Key_X);
    QCOMPARE(w_->Text(), QStringLiteral("xa\u2028b\nc"));
  }

  void eachChangeIsToldOnce() {
    int changes = 0;
    TextField field(nullptr, {[&] { ++changes; }, {}});
    const auto changesBy = [&](const std::function<void()>& deed) {
      changes = 0;
      deed();
      field.WhenWhole([] {});
      (void)field.Text();  // when it is whole
      return changes;
    };
    const String text(kLongText.toStdString());
    QCOMPARE(changesBy([&] { field.SetText(text); }), 1);
    QCOMPARE(changesBy([&] { field.SetText(text); }), 1);
    QCOMPARE(changesBy([&] { QTest::keyClick(&field, Qt::Key_X); }), 1);
    CopyElsewhere(kLongText);
    QCOMPARE(changesBy([&] { field.paste(); }), 1);
  }

  void whileATextLoadsClicksAreIgnoredAndKeysWait() {
    w_->Drop(kLongText);
    QTest::mouseClick(w_->txt->viewport(), Qt::LeftButton, {}, QPoint(30, 30));
    QTest::mouseDClick(w_->txt->viewport(), Qt::LeftButton, {}, QPoint(30, 30));
    QCOMPARE(w_->Text(), kLongText);
    QVERIFY(!w_->IsWhole());  // it had nothing to wait for
    w_->txt->setFocus();
    QTest::keyClick(w_->txt, Qt::Key_X);
    w_->Command("EditSelectAll")->trigger();
    QTest::keyClick(w_->txt, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(w_->Text(), "");
    QCOMPARE(QGuiApplication::clipboard()->text(), "x" + kLongText);  // no click has moved the cursor
  }

  void whatWaitsBehindAPasteActsOnItsText() {
    CopyElsewhere(kLongText);
    w_->Drop(kLongText);
    w_->txt->setFocus();
    QTest::keyClick(w_->txt, Qt::Key_X);
    QTest::keyClick(w_->txt, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(w_->txt, Qt::Key_X);
    w_->Command("EditSelectAll")->trigger();
    QTest::keyClick(w_->txt, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(w_->Text(), "");
    QCOMPARE(QGuiApplication::clipboard()->text(), "x" + kLongText + "x" + kLongText);
  }

  void tabLeavesTheFieldWhileATextLoads_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Tab") << Qt::Key_Tab;
    QTest::newRow("Shift+Tab") << Qt::Key_Backtab;
  }

  void tabLeavesTheFieldWhileATextLoads() {
    QFETCH(Qt::Key, key);
    w_->Drop(kLongText);
    w_->txt->setFocus();
    QTest::keyClick(w_->txt, key);
    QVERIFY(QApplication::focusWidget() != w_->txt);
    QVERIFY(!w_->IsWhole());
  }

  void whatWaitsForATextIsForgottenWithIt() {
    w_->Drop(kLongText);
    QTest::keyClick(w_->txt, Qt::Key_X);
    RuntimeWindowControlByName(w_->window, "txt"_s).As<EditField>()->Text("short"_s);
    QCOMPARE(w_->Text(), "short");
  }

 private:
  QTemporaryDir folder_;
  std::unique_ptr<TestedWindow> w_;
};

int main(int argc, char** argv) { return RunTest<TestTextField>(argc, argv); }
#include "test_text_field.moc"
