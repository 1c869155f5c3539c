// How texts get into the field: drops, pastes, keys, and what happens while a long text comes in.
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
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("addresses");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const QString& text, const QStringList& addresses, const QString& shown) {
      QTest::newRow(name) << text << addresses << shown;
    };
    row("a text", "SAT A\r\n1\r2\n", {}, "SAT A\n1\n2\n");
    row("a file before text", "text", {"file://localhost" + path}, "a\nb\nc\n");
    row("a file of this machine by its name", "text", {"file://" + host.toUpper() + path}, "a\nb\nc\n");
    row("a file of another machine is text", "far", {"file://elsewhere" + path}, "far");
    row("of two files, the first, of another type", "its name", {"file://" + pdf, "file://" + path}, "before");
    row("an address without text", {}, {"https://example.org/a.txt"}, "before");
  }

  void drops() {
    QFETCH(QString, text);
    QFETCH(QStringList, addresses);
    QFETCH(QString, shown);
    w_->Drop("before");
    QCOMPARE(w_->Drop(text, addresses), shown == "before" ? "refused" : "copied");
    QCOMPARE(w_->Text(), shown);
  }

  void theTextThatADropReplacesIsFreed() {
    const QPointer<QTextDocument> replaced = w_->txt->document();
    w_->Drop("text");
    QTRY_VERIFY(replaced.isNull());
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

  void aPasteTakesThePlaceOfTheSelectionAsOneStep() {
    // It has so many more lines than the pasted text that their difference must not count as memory to ask for.
    const QString replaced = "before" + QString(125'000, '\n') + "after";
    w_->Drop(replaced);
    QTRY_VERIFY(w_->IsWhole());
    QTextCursor selection = w_->txt->textCursor();
    selection.setPosition(6);
    selection.setPosition(6 + 125'000, QTextCursor::KeepAnchor);
    w_->txt->setTextCursor(selection);
    CopyElsewhere(kLongText);
    QTest::keyClick(w_->txt, Qt::Key_V, Qt::ControlModifier);
    const QString pasted = "before" + kLongText + "after";
    QCOMPARE(TextDifference(w_->Text(), pasted), "");
    QVERIFY2(!w_->IsWhole(), "reading the text waited for its end");
    QTRY_VERIFY(w_->IsWhole());
    QCOMPARE(TextDifference(w_->Text(), pasted), "");
    QCOMPARE(w_->txt->textCursor().position(), 6 + kLongText.size());
    QVERIFY(w_->txt->viewport()->rect().contains(w_->txt->cursorRect()));
    w_->Command("EditUndo")->trigger();
    QCOMPARE(TextDifference(w_->Text(), replaced), "");
    QVERIFY(!w_->Command("EditUndo")->isEnabled());
    w_->txt->redo();
    QCOMPARE(TextDifference(w_->Text(), pasted), "");
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
    w_->Drop("\n<>");
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

  // ---- Keys, and what waits

  void shiftWithReturnOrEnterEndsTheLine() {
    QTest::keyClick(w_->txt, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(w_->txt, Qt::Key_Enter, Qt::ShiftModifier | Qt::KeypadModifier);
    QCOMPARE(w_->Text(), "\n\n");
  }

  void whileATextComesInClicksAreIgnoredAndKeysAndCommandsWait() {
    CopyElsewhere(kLongText);
    w_->Drop(kLongText);
    w_->txt->setFocus();
    QTest::mouseDClick(w_->txt->viewport(), Qt::LeftButton, {}, QPoint(30, 30));
    QCOMPARE(TextDifference(w_->Text(), kLongText), "");
    QVERIFY2(!w_->IsWhole(), "reading the text waited for its end");
    QTest::keyClick(w_->txt, Qt::Key_X);
    QTest::keyClick(w_->txt, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(w_->txt, Qt::Key_X);
    w_->Command("EditSelectAll")->trigger();
    QTest::keyClick(w_->txt, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(w_->Text(), "");
    // No click moved the cursor.
    QCOMPARE(TextDifference(QGuiApplication::clipboard()->text(), "x" + kLongText + "x" + kLongText), "");
  }

  void tabLeavesTheFieldWhileATextLoads() {
    w_->Drop(kLongText);
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
      w_->txt->setFocus();
      QTest::keyClick(w_->txt, key);
      QVERIFY2(!w_->txt->hasFocus(), qPrintable(QKeySequence(key).toString()));
    }
    QVERIFY2(!w_->IsWhole(), "the whole text came in at once");
  }

  void anEditFromElsewhereWhileATextLoadsIsKept() {
    // Fewer bytes than a slice may have, but many more lines.
    const QString lines = QString(100'000, '\n') + "end", edited = QString(lines).insert(3, "edited");
    w_->Drop(lines);
    QVERIFY2(!w_->IsWhole(), "many short lines came in at once");
    QAccessible::queryAccessibleInterface(w_->txt)->editableTextInterface()->insertText(3, "edited");
    QCOMPARE(TextDifference(w_->Text(), edited), "");
    QTRY_VERIFY(w_->IsWhole());
    QCOMPARE(TextDifference(w_->Text(), edited), "");
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
