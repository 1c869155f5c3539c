// The window: its controls, dialogs, alerts, menus and preferences; long texts, drops, and the middle of a save.
#include "tests/window_fixture.h"

namespace {

const QString kTitle = "Celestrix Satellite Encoder", kAlert = kTitle + "|" + kTitle + "|PlainText|";
const QString kInstructions =
    "Drag and drop a text file containing satellite elements onto the field below, or use the Browse... button, or "
    "copy and paste the text file contents into the field. Then click the Save... button to create the Celestrix file.";
/// Lines of element sets, with a mark in front of each, as when files were joined together.
const QString kLongText =
    (QStringLiteral("\uFEFFSAT \U0001F6F0 é\n") + QString(71, '1') + "\n").repeated(12000) + "end";

/// The text of another program, which counts how often it is fetched.
struct ForeignText final : QMimeData {
  mutable int fetched = 0;
  QStringList formats() const override { return {"text/plain"}; }
  QVariant retrieveData(const QString& /*type*/, QMetaType /*to*/) const override { return ++fetched; }
};

}  // namespace

class TestWindow : public QObject {
  Q_OBJECT

 private slots:
  void controls() {
    // clang-format off
    // name, member of its set, place, which of its edges (left, top, right, bottom) move with the window's right or
    // bottom edge, what it is for a screen reader
    const std::tuple<const char*, int, QRect, QList<int>, QAccessible::Role, QString> controls[] = {
        {"StaticText1", 0, {20, 14, 466, 55}, {0, 0, 1, 0}, QAccessible::StaticText, kInstructions},
        {"txt", 0, {20, 81, 466, 275}, {0, 0, 1, 1}, QAccessible::EditableText, kInstructions},
        {"BrowseBtn", 0, {20, 380, 80, 20}, {0, 1, 0, 1}, QAccessible::Button, "Browse..."},
        {"SaveBtn", 0, {406, 380, 80, 20}, {1, 1, 1, 1}, QAccessible::Button, "Save..."},
        {"GroupBox1", 0, {143, 360, 221, 46}, {0, 1, 0, 1}, QAccessible::Grouping, "Celestrix file format"},
        {"FileFormat", 0, {153, 380, 81, 20}, {0, 1, 0, 1}, QAccessible::RadioButton, "Palm (PDB)"},
        {"FileFormat", 1, {246, 380, 110, 20}, {0, 1, 0, 1}, QAccessible::RadioButton, "Pocket PC (PPC)"}};
    // clang-format on
    TestedWindow w;
    QWidget* content = w.frame->centralWidget();
    const QSize frame = w.frame->size();
    for (const QSize& growth : {QSize(0, 0), QSize(100, 100), QSize(-999, -999), QSize(2000, 0)}) {
      w.frame->resize(frame + growth);
      const QSize real = growth.expandedTo(QSize(64 - 506, 64 - 426));
      QTRY_COMPARE(content->size(), QSize(506, 426) + real);
      for (const auto& [name, member, at, moves, role, heard] : controls) {
        auto* control = content->findChildren<QWidget*>(name).at(member);
        if (role != QAccessible::RadioButton)  // whose captions are too wide in some fonts, and become smaller
          QCOMPARE(std::pair(heard, control->font().pixelSize()), std::pair(heard, 11));
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control);
        QCOMPARE(std::pair(accessible->text(QAccessible::Name), accessible->role()), std::pair(heard, role));
        const int wider = real.width(), higher = real.height();
        QRect expected = at.adjusted(moves[0] * wider, moves[1] * higher, moves[2] * wider, moves[3] * higher);
        expected.setSize(expected.size().expandedTo(QSize(0, 0)));
        const QRect place(control->mapTo(content, QPoint()), control->size());
        QCOMPARE(std::pair(name, place), std::pair(name, expected));
      }
    }
  }

  void inDarkColoursAndWideLetters() {
    QFont wide = QApplication::font();
    wide.setLetterSpacing(QFont::PercentageSpacing, 160);
    QApplication::setFont(wide);
    QApplication::setPalette(QPalette(Qt::darkGray, Qt::black));
    TestedWindow w;
    QCOMPARE(w.frame->maximumSize(), QSize(32000, 32000 + w.frame->menuBar()->height()));
    auto* label = w.frame->findChild<QLabel*>("StaticText1");
    QCOMPARE(label->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(0x7F, 0x7F, 0x7F));
    QCOMPARE(w.txt->palette().color(QPalette::Text), QColor(Qt::black));
    QCOMPARE(w.txt->palette().color(QPalette::Base), QColor(Qt::white));
    QVERIFY(label->heightForWidth(466) <= 55);
    QVERIFY(w.frame->findChild<QGroupBox*>()->minimumSizeHint().width() <= 221);
    for (const QAbstractButton* button : w.frame->findChildren<QAbstractButton*>())
      QVERIFY2(button->fontMetrics().horizontalAdvance(button->text()) < button->width(), qPrintable(button->text()));
  }

  void dialogsAndTheirAlerts() {
    const auto child = New<StaticText>();
    TestedWindow w;
    const QString place = folder_.path(), path = WriteFile(place + "/-a b%20é", "old");
    w.Click(w.browse, WriteFile(place + "/a.txt", "a\r\nb"));
    QCOMPARE(w.Click(w.browse, ""), "AcceptOpen|ExistingFile|Text (*.txt *.TXT)||" + kTitle + "|" + place);
    for (const QString type : {"pdb", "ppc"}) {
      TestedWindow::Choose(type == "pdb" ? w.palm : w.pocket);
      const QString dialog = QString("AcceptSave|AnyFile|%1 (*.%2 *.%1)|celestrix_satellites.%2|%3|%4")
                                 .arg(type.toUpper(), type, kTitle, place);
      QCOMPARE(w.Click(w.save, path), dialog + "|replaced");
      QCOMPARE(ReadFile(path), model::SavedFile("a\nb", type == "pdb"));
      QCOMPARE(w.Click(w.save, ""), dialog);
    }
    w.Click(w.save, path + "/in.it");
    QCOMPARE(w.Alert(), kAlert + QString("“%1/in.it” could not be created: %2.").arg(path, std::strerror(ENOTDIR)));
    w.window->AddControl("child"_s, child);
    const std::pair<std::function<void()>, QString> failures[] = {
        {[] { throw std::bad_alloc(); }, "There is not enough memory."},
        {[&] { _SetProperties(child, {.Name = "child", .InitialParent = "nobody"}); },
         "The layout puts “child” into “nobody”, but there is no such control before it."}};
    for (const auto& [fail, reason] : failures) {
      QMetaObject::invokeMethod(qApp, fail, Qt::QueuedConnection);  // in an event of the toolkit's own
      QCOMPARE(w.Alert(), kAlert + reason);
    }
  }

  void menusAndKeys() {
    auto* content = new ForeignText;
    QGuiApplication::clipboard()->setMimeData(content);
    TestedWindow w;
    QStringList texts;
    for (const QAction* menu : w.frame->menuBar()->actions()) {
      texts += menu->text();
      for (const QAction* item : menu->menu()->actions()) texts += item->text() + item->shortcut().toString();
    }
    Window1& bar = *w.window;
    for (const Ref<MenuItem>& item :
         {bar.FileMenu(), Ref<MenuItem>(bar.FileQuit()), bar.EditMenu(), bar.EditUndo(), bar.EditCut(), bar.EditCopy(),
          bar.EditPaste(), bar.EditClear(), bar.EditSelectAll()})
      texts += Bytes(item->Name);
    QCOMPARE(texts.join('|'),
             "&File|&QuitCtrl+Q|&Edit|&UndoCtrl+Z||Cu&tCtrl+X|&CopyCtrl+C|&PasteCtrl+V|&Delete||Select &AllCtrl+A|"
             "FileMenu|FileQuit|EditMenu|EditUndo|EditCut|EditCopy|EditPaste|EditClear|EditSelectAll");
    w.txt->setFocus();
    QTest::keyClicks(w.txt, "keys");
    QTest::keyClick(w.txt, Qt::Key_Left, Qt::ShiftModifier);
    QTRY_VERIFY2(w.Command("EditPaste")->isEnabled(), "waited for the look at what was in the clipboard before");
    QCOMPARE(content->fetched, 0);
    QTest::keyClick(w.txt, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(w.Text(), "key1");
    w.txt->selectAll();
    QVERIFY(w.Command("EditCut")->isEnabled());
    auto* file = new QMimeData;
    file->setUrls({QUrl("file:///a.txt")});
    for (QMimeData* noText :
         {file, new QMimeData, static_cast<QMimeData*>(nullptr)}) {  // as of a program that has ended
      QGuiApplication::clipboard()->setMimeData(noText);
      QVERIFY(!w.Command("EditPaste")->isEnabled());
      QTest::keyClick(w.txt, Qt::Key_V, Qt::ControlModifier);
      QCOMPARE(w.Text(), "key1");
    }
    w.frame->menuBar()->setFocus();
    QVERIFY(w.Command("EditSelectAll")->isEnabled());
    w.browse->setFocus();
    QVERIFY(!w.Command("EditSelectAll")->isEnabled());
    for (const QWidget* next : std::initializer_list<QWidget*>{w.save, w.palm, w.txt, w.browse}) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QCOMPARE(QApplication::focusWidget(), next);
    }
  }

  void aPreferenceForNothing() {
    WriteFile(PreferencesPath(), "2");
    TestedWindow w;
    QCOMPARE(w.Alert(), kAlert + "The window has no control “FileFormat” with the number 2.");
    QVERIFY(QFile::remove(PreferencesPath()));
  }

  void longLinesAndMarksAreKept() {
    const QString mark = QChar(0xFEFF), longest = mark + QString(999'999, u'é');
    const QString text = mark + "a\n" + longest + "\n" + mark + QString(200'000, 'x');
    TestedWindow w;
    QCOMPARE(w.Drop(text), "copied");
    QCOMPARE(w.Text(), text);
    QTest::keyClick(w.txt, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(w.txt, Qt::Key_X);
    QCOMPARE(w.Text(), text + "x");
    const QString tooLong = "The text has a line that is longer than the field can hold.";
    const std::pair<QString, QString> refused[] = {
        {QString((1 << 24) + 1, '\n'), "The text has more lines than the field can hold."},
        {"a\n" + longest + "é", tooLong},
        {longest + "\n" + QString(1'000'001, 'x') + "\nb", tooLong}};
    for (const auto& [tooMuch, alert] : refused) {
      QCOMPARE(w.Drop(tooMuch), "copied");
      QCOMPARE(w.Alert(), kAlert + alert);
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

  // The last one: it ends the program.
  void eventsDuringASaveTakeTheirTurn() {
    TestedWindow w;
    const QString path = folder_.filePath("saved.ppc"), file = WriteFile(folder_.filePath("dropped.txt"), "dropped\n");
    w.Drop(kLongText);
    QTRY_VERIFY2_WITH_TIMEOUT(w.IsWhole(), "waited for the field to show its text", 20000);
    TestedWindow::Choose(w.pocket);
    QStringList then;
    const auto inTheMiddle = [&] {
      w.palm->setChecked(true);                   // as accessibility clients do; the file is of the format chosen last
      QTest::mouseClick(w.save, Qt::LeftButton);  // as the system ends the program, its dialog is not shown
      TestedWindow::Choose(w.pocket);
      QTest::keyClick(w.txt, Qt::Key_X);
      then += w.Drop({}, {"file://" + file});
      // The session's end is announced; of the manager that announces it, there is none here.
      QMetaObject::invokeMethod(qApp, "commitDataRequest", QGenericArgument("QSessionManager&", qApp));
      w.Drop("too late");
      if (w.palm->isChecked()) then += "still Palm";
      if (w.frame->isVisible()) then += "still open";
      if (ReadFile(path).size() < 78 + 221 * 8000) then += "still saving";
    };
    w.inDialog = [&] {  // with the first yield of the save
      connect(QApplication::activeModalWidget(), &QObject::destroyed, qApp, inTheMiddle, Qt::QueuedConnection);
    };
    w.Click(w.save, path);
    QCOMPARE(then, QStringList({"copied", "still Palm", "still open", "still saving"}));
    QCOMPARE(ReadFile(path), model::SavedFile(kLongText, true));
    QCOMPARE(w.Text(), "dropped\n");
    TestedWindow::Choose(w.palm);
    QVERIFY(w.pocket->isChecked());  // nothing happens any more
    QCOMPARE(ReadFile(PreferencesPath()), "1\n");
  }

 private:
  QTemporaryDir folder_;
};

int main(int argc, char** argv) { return RunTest<TestWindow>(argc, argv); }
#include "test_window.moc"
