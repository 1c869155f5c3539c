// How texts get into the field: drops, pastes, keys, and what happens while a long text comes in.
#include <fstream>

#include "tests/window/fixture.h"

class TestTextField : public QObject {
  Q_OBJECT

 private slots:
  void init() { w_ = std::make_unique<TestedWindow>(); }
  void cleanup() { w_.reset(); }

  // ---- Drops

  void drops_data() {
    const QString path = WriteFile(folder_.filePath("Windows.TXT"), "a\r\nb\rc\n");
    const QString pdf = WriteFile(folder_.filePath("x.pdf"), "x"), host = QSysInfo::machineHostName();
    std::ofstream(folder_.path().toStdString() + "/S\xE4tze.txt") << '\xE4';
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("addresses");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const QString& text, const QStringList& addresses, const QString& shown) {
      QTest::newRow(name) << text << addresses << shown;
    };
    row("a text", "SAT A\r\n1\r2\n", {}, "SAT A\n1\n2\n");
    row("a file before text", "text", {"file://localhost" + path}, "a\nb\nc\n");
    row("a file of this machine by its name", "text", {"file://" + host.toUpper() + path}, "a\nb\nc\n");
    row("a file whose name is not UTF-8", "its address", {"file://" + folder_.path() + "/S%E4tze.txt"}, "ä");
    row("a file whose address hides its type", "its address", {"file://" + pdf + "%00.txt"}, "before");
    row("a file of another machine", "its address", {"file://elsewhere" + path}, "before");
    row("a file of a server", "its address", {"sftp://elsewhere/a.txt"}, "before");
    row("the address of a page", "its address", {"https://example.org/a.txt"}, "its address");
    row("of two files, the first, of another type", "its name", {"file://" + pdf, "file://" + path}, "before");
    row("an address without text", {}, {"https://example.org/a.txt"}, "before");
  }

  void drops() {
    QFETCH(QString, text);
    QFETCH(QStringList, addresses);
    QFETCH(QString, shown);
    w_->Fill("before");
    QCOMPARE(w_->Drop(text, addresses), shown == "before" ? "refused" : "copied");
    QCOMPARE(w_->Text(), shown);
  }

  void theTextThatADropReplacesIsFreed() {
    const QPointer<QTextDocument> replaced = w_->txt->document();
    w_->Fill("text");
    QTRY_VERIFY(replaced.isNull());
  }

  void aDropOnTheScrollBarIsOneOnTheField() {
    w_->dropsOn = w_->txt->verticalScrollBar();
    QCOMPARE(w_->Drop("text"), "copied");
    QCOMPARE(w_->Text(), "text");
  }

  void aDropThatOnlyMovesIsRefused() { QCOMPARE(w_->Drop("text", {}, Qt::MoveAction), "refused"); }

  void aTextThatDoesNotArriveChangesNothing() {
    w_->Fill("before");
    QCOMPARE(w_->Drop(""), "refused on the way");
    CopyElsewhere("");
    w_->txt->selectAll();
    QTest::keyClick(w_->txt, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(w_->Text(), "before");
    QCOMPARE(w_->txt->textCursor().selectedText(), "before");
  }

  // ---- Copying and pasting

  void textIsOfferedWithAndWithoutItsEncoding() {
    w_->Fill("é\nb");
    w_->txt->selectAll();
    w_->txt->copy();
    const QMimeData* const copied = QGuiApplication::clipboard()->mimeData();
    for (const char* format : {"text/plain", "text/plain;charset=utf-8"})
      QCOMPARE(QString::fromUtf8(copied->data(format)), "é\nb");
  }

  void aPasteIsOneStep_data() {
    QTest::addColumn<bool>("isWhole");
    QTest::newRow("that comes in still") << false;
    QTest::newRow("that has come in") << true;
  }
  void aPasteIsOneStep() {
    QFETCH(const bool, isWhole);
    // It has so many more lines than the pasted text that their difference must not count as memory to ask for.
    const QString replaced(125'000, '\n');
    w_->Fill(replaced);
    QTRY_VERIFY(w_->IsWhole());
    w_->txt->selectAll();
    CopyElsewhere(kLongText);
    QTest::keyClick(w_->txt, Qt::Key_V, Qt::ControlModifier);
    QVERIFY2(!w_->IsWhole(), "the whole text came in at once");
    QTRY_VERIFY(!isWhole || w_->IsWhole());
    w_->Command("EditUndo")->trigger();
    QCOMPARE(TextDifference(w_->Text(), replaced), "");
    QVERIFY(!w_->Command("EditUndo")->isEnabled());
    w_->txt->redo();
    QCOMPARE(TextDifference(w_->Text(), kLongText), "");
    QVERIFY(w_->txt->viewport()->rect().contains(w_->txt->cursorRect()));
  }

  // ---- What does not fit

  void limits_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("alert");
    const QString none, tooLong = "The text has a line that is longer than the field can hold.";
    const QString tooMany = "The text has more lines than the field can hold.";
    QTest::newRow("a long line of plain characters") << "a\n" + QString(999'998, u'é') + "\nb" << none;
    QTest::newRow("too long by one") << "a\n" + QString(1'000'001, u'é') + "\nb" << tooLong;
    QTest::newRow("too long by what stands before it") << QString(1'000'000, 'x') + "\nb" << tooLong;
    QTest::newRow("too long by what stands behind it") << "a\n" + QString(1'000'000, 'x') << tooLong;
    QTest::newRow("a line of marks") << "a\n" + QString(10'000, QChar(0x301)) + "\nb" << none;
    QTest::newRow("too many marks in it") << "a\n" + QString(10'001, QChar(0x301)) + "\nb" << tooLong;
    QTest::newRow("too many lines, with the others") << QString(1 << 22, '\n') << tooMany;
  }

  void limits() {
    QFETCH(QString, text);
    QFETCH(QString, alert);
    const QString whole = "\n<" + text + ">", shown = alert.isNull() ? whole : "\n<>";
    w_->Fill("\n<>");
    w_->txt->moveCursor(QTextCursor::End);
    w_->txt->moveCursor(QTextCursor::Left);
    CopyElsewhere(text);
    QTest::keyClick(w_->txt, Qt::Key_V, Qt::ControlModifier);
    if (!alert.isNull()) QCOMPARE(w_->NextAlert(), alert);
    QCOMPARE(TextDifference(w_->Text(), shown), "");
    QCOMPARE(w_->Drop(whole), "copied");
    if (!alert.isNull()) QCOMPARE(w_->NextAlert(), alert);
    QCOMPARE(TextDifference(w_->Text(), shown), "");
  }

  // ---- Keys, and texts that come in

  void shiftWithReturnOrEnterEndsTheLine() {
    QTest::keyClick(w_->txt, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(w_->txt, Qt::Key_Enter, Qt::ShiftModifier | Qt::KeypadModifier);
    QCOMPARE(w_->Text(), "\n\n");
  }

  void whoeverTouchesTheFieldGetsTheWholeTextFirst_data() {
    QTest::addColumn<Deed>("deed");
    QTest::addColumn<bool>("touches");
    const auto row = [](const char* name, bool touches, Deed deed) { QTest::newRow(name) << deed << touches; };
    row("a key", true, [](TestedWindow& w) { QTest::keyClick(w.txt, Qt::Key_Left); });
    row("a click", true, [](TestedWindow& w) { QTest::mouseClick(w.txt->viewport(), Qt::LeftButton); });
    row("a double click", true, [](TestedWindow& w) { QTest::mouseDClick(w.txt->viewport(), Qt::LeftButton); });
    row("a context menu", true, OpensContextMenu);
    row("an input method", true, Composes);
    row("a command", true, [](TestedWindow& w) { w.Command("EditSelectAll")->trigger(); });
    row("a paste", true, [](TestedWindow& w) { w.txt->paste(); });
    row("Tab", false, [](TestedWindow& w) { QTest::keyClick(w.txt, Qt::Key_Tab); });
    row("Shift+Tab", false, [](TestedWindow& w) { QTest::keyClick(w.txt, Qt::Key_Backtab); });
    row("Alt, as for Alt+F4", false, [](TestedWindow& w) { QTest::keyClick(w.txt, Qt::Key_Alt); });
    row("reading the text", false, [](TestedWindow& w) { w.Text(); });
  }
  void whoeverTouchesTheFieldGetsTheWholeTextFirst() {
    QFETCH(const Deed, deed);
    QFETCH(const bool, touches);
    CopyElsewhere("");
    w_->txt->setFocus();
    w_->Fill(kLongText);
    QVERIFY2(!w_->IsWhole(), "the whole text came in at once");
    deed(*w_);
    QCOMPARE(w_->IsWhole(), touches);
    QCOMPARE(TextDifference(w_->Text(), kLongText), "");
  }

  void anEditFromElsewhereWhileATextLoadsIsKept() {
    // Fewer bytes than a slice may have, but many more lines.
    const QString lines = QString(100'000, '\n') + "end", edited = QString(lines).insert(3, "edited");
    w_->Fill(lines);
    QVERIFY2(!w_->IsWhole(), "many short lines came in at once");
    QAccessible::queryAccessibleInterface(w_->txt)->editableTextInterface()->insertText(3, "edited");
    QCOMPARE(TextDifference(w_->Text(), edited), "");
    QTRY_VERIFY(w_->IsWhole());
    QCOMPARE(TextDifference(w_->Text(), edited), "");
  }

 private:
  using Deed = void (*)(TestedWindow&);

  static void OpensContextMenu(TestedWindow& w) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, {9, 9}, {9, 9});
    QCoreApplication::sendEvent(w.txt->viewport(), &event);
    QWidget* menu = QApplication::activePopupWidget();
    QVERIFY2(menu != nullptr, "the menu waits");
    menu->close();
  }

  static void Composes(TestedWindow& w) {
    QInputMethodEvent event("xing", {});
    QCoreApplication::sendEvent(w.txt, &event);
  }

  QTemporaryDir folder_;
  std::unique_ptr<TestedWindow> w_;
};

int main(int argc, char** argv) { return RunTest<TestTextField>(argc, argv); }
#include "test_text_field.moc"
