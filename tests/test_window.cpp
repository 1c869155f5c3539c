// The window: its controls, dialogs, alerts, menus and preferences; long texts, drops, and the middle of a save.
#include <cerrno>
#include <cstring>
#include <new>

#include "tests/model.h"
#include "tests/window_fixture.h"

using namespace celestrix;

namespace {

const QString kTitle = "Celestrix Satellite Encoder", kAlert = kTitle + "|" + kTitle + "|PlainText|";
const QString kInstructions =
    "Drag and drop a text file containing satellite elements onto the field below, or use the Browse... button, or "
    "copy and paste the text file contents into the field. Then click the Save... button to create the Celestrix file.";
/// Lines of element sets, with a mark in front of each, as when files were joined together.
const QString kLongText =
    (QStringLiteral("\uFEFFSAT \U0001F6F0 é\n") + QString(71, '1') + "\n").repeated(12000) + "end";

/// A dark desktop whose letters stand so far apart, in per cent, for the windows from now on.
void MakeDesktop(qreal spacing) {
  QFont font = QApplication::font();
  font.setLetterSpacing(QFont::PercentageSpacing, spacing);
  QApplication::setFont(font);
  QApplication::setPalette(QPalette(Qt::darkGray, Qt::black));
}

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
  void initTestCase() { ReleaseImplicitWindows(); }  // the first one, which is older than the desktop of the tests

  void controls() {
    // clang-format off
    // name, member of its set, place, how that changes when the window grows by a pixel, what it is for a screen reader
    const std::tuple<const char*, int, QRect, QRect, QAccessible::Role, QString> controls[] = {
        {"StaticText1", 0, {20, 14, 466, 55}, {0, 0, 1, 0}, QAccessible::StaticText, kInstructions},
        {"txt", 0, {20, 81, 466, 275}, {0, 0, 1, 1}, QAccessible::EditableText, kInstructions},
        {"BrowseBtn", 0, {20, 380, 80, 20}, {0, 1, 0, 0}, QAccessible::Button, "Browse..."},
        {"SaveBtn", 0, {406, 380, 80, 20}, {1, 1, 0, 0}, QAccessible::Button, "Save..."},
        {"GroupBox1", 0, {143, 360, 221, 46}, {0, 1, 0, 0}, QAccessible::Grouping, "Celestrix file format"},
        {"FileFormat", 0, {153, 380, 81, 20}, {0, 1, 0, 0}, QAccessible::RadioButton, "Palm (PDB)"},
        {"FileFormat", 1, {246, 380, 110, 20}, {0, 1, 0, 0}, QAccessible::RadioButton, "Pocket PC (PPC)"}};
    // clang-format on
    MakeDesktop(70);
    TestedWindow w;
    QWidget* content = w.frame->centralWidget();
    const QSize frame = w.frame->size();
    for (const QSize& growth : {QSize(0, 0), QSize(100, 100), QSize(-100, -100), QSize(-999, -999), QSize(2000, 0)}) {
      w.frame->resize(frame + growth);
      const QSize real = growth.expandedTo(QSize(64 - 506, 64 - 426));
      QTRY_COMPARE(content->size(), QSize(506, 426) + real);
      for (const auto& [name, member, at, change, role, heard] : controls) {
        auto* control = content->findChildren<QWidget*>(name).at(member);
        QCOMPARE(std::pair(name, control->font().pixelSize()), std::pair(name, 11));
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control);
        QCOMPARE(std::pair(accessible->text(QAccessible::Name), accessible->role()), std::pair(heard, role));
        const QPoint corner = at.topLeft() + QPoint(change.x() * real.width(), change.y() * real.height());
        const QSize size = at.size() + QSize(change.width() * real.width(), change.height() * real.height());
        const QRect place(control->mapTo(content, QPoint()), control->size());
        QCOMPARE(std::pair(name, place), std::pair(name, QRect(corner, size.expandedTo(QSize(0, 0)))));
      }
    }
  }

  void coloursAndCaptions() {
    MakeDesktop(140);
    TestedWindow w;
    QCOMPARE(w.frame->windowTitle(), kTitle);
    QCOMPARE(w.frame->maximumSize(), QSize(32000, 32000 + w.frame->menuBar()->height()));
    QVERIFY(!w.save->isEnabled());
    QVERIFY(w.txt->verticalScrollBar()->isVisible());
    QVERIFY(!w.txt->horizontalScrollBar()->isVisible());
    QCOMPARE(w.txt->wordWrapMode(), QTextOption::WrapAnywhere);
    auto* label = w.frame->findChild<QLabel*>("StaticText1");
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(0x7F, 0x7F, 0x7F));
    QCOMPARE(w.txt->palette().color(QPalette::Text), QColor(Qt::black));
    QCOMPARE(w.txt->palette().color(QPalette::Base), QColor(Qt::white));
    QVERIFY(label->heightForWidth(466) <= 55);
    QVERIFY(w.frame->findChild<QGroupBox*>()->minimumSizeHint().width() <= 221);
    for (const QAbstractButton* button : w.frame->findChildren<QAbstractButton*>())
      QVERIFY2(button->fontMetrics().horizontalAdvance(button->text()) < button->width(), qPrintable(button->text()));
  }

  void dialogsAndTheirAlerts() {
    TestedWindow w;
    const QString place = folder_.path(), bad = place + "/folder.txt", path = WriteFile(place + "/-a b%20é", "old");
    QVERIFY(QDir().mkpath(bad));
    w.Click(w.browse, WriteFile(place + "/a.txt", "a\r\nb"));
    QCOMPARE(w.Click(w.browse, ""),
             QStringList({"AcceptOpen", "ExistingFile", "Text (*.txt *.TXT)", "", kTitle, place}));
    w.Drop({}, {"file://" + bad});
    QCOMPARE(w.Alert(), kAlert + QString("“%1” could not be opened: %2.").arg(bad, std::strerror(EISDIR)));
    for (const QString type : {"pdb", "ppc"}) {
      TestedWindow::Choose(type == "pdb" ? w.palm : w.pocket);
      const QString filter = QString("%1 (*.%2 *.%1)").arg(type.toUpper(), type);
      const QStringList expected = {"AcceptSave", "AnyFile", filter, "celestrix_satellites." + type, kTitle, place};
      QCOMPARE(w.Click(w.save, path), expected + QStringList("replaced"));
      QCOMPARE(ReadFile(path), model::SavedFile("a\nb", type == "pdb"));
      QCOMPARE(w.Click(w.save, ""), expected);
    }
    w.Click(w.save, path + "/in.it");
    QCOMPARE(w.Alert(), kAlert + QString("“%1/in.it” could not be created: %2.").arg(path, std::strerror(ENOTDIR)));
    QCOMPARE(w.Text(), "a\nb");
    const auto fail = [] { throw std::bad_alloc(); };  // in an event of the toolkit's own
    QMetaObject::invokeMethod(qApp, fail, Qt::QueuedConnection);
    QCOMPARE(w.Alert(), kAlert + "There is not enough memory.");
  }

  void menusAndKeys() {
    TestedWindow w;
    QCOMPARE(w.window->EditClear()->Name.Bytes(), "EditClear");
    QStringList texts;
    for (const QMenu* menu : w.frame->menuBar()->findChildren<QMenu*>())
      for (const QAction* action : menu->actions()) texts += action->text() + action->shortcut().toString();
    QCOMPARE(texts.join('|'),
             "&QuitCtrl+Q|&UndoCtrl+Z||Cu&tCtrl+X|&CopyCtrl+C|&PasteCtrl+V|&Delete||Select &AllCtrl+A");
    QGuiApplication::clipboard()->clear();
    QVERIFY(!w.Command("EditPaste")->isEnabled());
    w.SetText("set");
    w.txt->setFocus();
    QGuiApplication::clipboard()->setText("text");
    QVERIFY(w.Command("EditPaste")->isEnabled());
    w.frame->menuBar()->setFocus();
    QVERIFY(w.Command("EditSelectAll")->isEnabled());
    w.browse->setFocus();
    QVERIFY(!w.Command("EditSelectAll")->isEnabled());
    w.txt->setFocus();
    const QWidget* const order[] = {w.browse, w.save, w.palm, w.txt};
    for (const QWidget* next : order) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QCOMPARE(QApplication::focusWidget(), next);
    }
  }

  void preferences() {
    const std::pair<QString, QString> rows[] = {{QString(), "Palm"}, {"", "Palm"},      {"1", "Pocket PC"},
                                                {"\n1", "Palm"},     {"words", "Palm"}, {"1e99", ""}};
    for (const auto& [content, expected] : rows) {
      const QString path = PreferencesPath();
      if (content.isNull()) QDir().mkdir(path);
      if (!content.isNull()) WriteFile(path, content.toStdString());
      TestedWindow w;
      QDir().rmdir(path);
      QFile::remove(path);
      const QString chosen = QString(w.palm->isChecked() ? "Palm" : "") + (w.pocket->isChecked() ? "Pocket PC" : "");
      QCOMPARE(content + ": " + chosen, content + ": " + expected);
      if (expected.isEmpty()) QVERIFY(w.Alert().startsWith(kAlert + "The window has no control “FileFormat”"));
    }
  }

  void longLinesAndMarksAreKept() {
    const QString mark = QChar(0xFEFF), longest(1'000'000, u'é');
    TestedWindow w;
    for (const QString& text : {mark, kLongText, QString(200'000, 'x') + "\nend", "a\n" + longest}) {
      QCOMPARE(w.Drop(text), "CopyAction");
      QCOMPARE(w.Text(), text.toStdString());
      QVERIFY2(w.save->isEnabled(), qPrintable(text.left(5)));
      QTest::keyClick(w.txt, Qt::Key_End, Qt::ControlModifier);
      QTest::keyClick(w.txt, Qt::Key_X);
      QCOMPARE(w.Text(), (text + "x").toStdString());
    }
    const QString tooLong = "The text has a line that is longer than the field can hold.";
    const std::pair<QString, QString> refused[] = {
        {QString((1 << 24) + 1, '\n'), "The text has more lines than the field can hold."},
        {"a\n" + longest + "é", tooLong},
        {QString(1'000'001, 'x') + "\nb", tooLong}};
    for (const auto& [text, alert] : refused) {
      QCOMPARE(w.Drop(text), "CopyAction");
      QCOMPARE(w.Alert(), kAlert + alert);
      QCOMPARE(w.Text(), ("a\n" + longest + "x").toStdString());
    }
  }

  void whileATextLoads() {
    TestedWindow w;
    w.SetText(kLongText);
    QTest::mouseMove(w.txt->viewport(), QPoint(30, 30));
    QTest::mouseClick(w.txt->viewport(), Qt::LeftButton, {}, QPoint(30, 30));
    QTest::mouseDClick(w.txt->viewport(), Qt::LeftButton, {}, QPoint(30, 30));
    QCOMPARE(w.Text(), kLongText.toStdString());
    QVERIFY(!w.IsWhole());  // it had nothing to wait for
    w.txt->setFocus();
    QTest::keyClick(w.txt, Qt::Key_X);
    w.Command("EditSelectAll")->trigger();
    QTest::keyClick(w.txt, Qt::Key_X, Qt::ControlModifier);
    QVERIFY(!w.IsWhole());
    QCOMPARE(w.Text(), "");
    QCOMPARE(QGuiApplication::clipboard()->text(), "x" + kLongText);  // no click has moved the cursor
    w.SetText(kLongText);
    QTest::keyClick(w.txt, Qt::Key_X);
    QTest::keyClick(w.txt, Qt::Key_Tab);
    QVERIFY(w.browse->hasFocus());
    w.txt->setFocus();
    QTest::keyClick(w.txt, Qt::Key_Backtab);
    QVERIFY(!w.txt->hasFocus());
    w.SetText("short");  // the key was for the text before
    QCOMPARE(w.Text(), "short");
  }

  void drops() {
    const QString path = WriteFile(folder_.filePath("Windows.TXT"), "a\r\nb\rc\n"), file = "file://" + path;
    const QString pdf = "file://" + WriteFile(folder_.filePath("x.pdf"), "x"), host = QSysInfo::machineHostName();
    const QString empty = "file://" + WriteFile(folder_.filePath("empty.txt"), "");
    const Qt::DropActions both = Qt::CopyAction | Qt::MoveAction;
    // clang-format off
    const std::tuple<QString, QStringList, Qt::DropActions, QString> rows[] = {
        {{}, {file, pdf}, both, "CopyAction: a\nb\nc\n"},
        {{}, {empty}, both, "CopyAction: "},
        {"its name", {pdf, file}, both, "refused: before"},
        {"text", {"file://localhost" + path}, both, "CopyAction: a\nb\nc\n"},
        {"text", {"file://" + host.toUpper() + path}, both, "CopyAction: a\nb\nc\n"},
        {"far", {"file://elsewhere" + path}, both, "CopyAction: far"},
        {"far", {"https://example.org/a.txt"}, both, "CopyAction: far"},
        {{}, {"https://example.org/a.txt"}, both, "refused: before"},
        {{}, {}, both, "refused: before"},
        {"text", {}, Qt::MoveAction, "refused: before"}};
    // clang-format on
    TestedWindow w;
    for (const auto& [text, files, offered, outcome] : rows) {
      const QString what = text + files.join(',') + ": ";
      w.SetText("before");
      const QString actual = w.Drop(text, files, offered) + ": ";
      QCOMPARE(what + actual + QString::fromStdString(w.Text()), what + outcome);
      QCOMPARE(w.save->isEnabled(), outcome != "CopyAction: ");
    }
  }

  void foreignTextIsFetchedOnlyToPaste() {
    TestedWindow w;
    auto* content = new ForeignText;
    QGuiApplication::clipboard()->setMimeData(content);
    w.txt->setFocus();
    QTest::keyClicks(w.txt, "keys");
    QTest::keyClick(w.txt, Qt::Key_Left, Qt::ShiftModifier);
    QVERIFY(w.Command("EditPaste")->isEnabled());
    QCOMPARE(content->fetched, 0);
    QTest::keyClick(w.txt, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(w.Text(), "key1");
    w.txt->selectAll();
    QGuiApplication::clipboard()->setMimeData(new QMimeData);  // as of a program that has ended
    QTest::keyClick(w.txt, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(w.Text(), "key1");
  }

  void aControlNeedsItsParent() {
    const auto control = New<StaticText>();
    TestedWindow w;
    w.window->AddControl("child"_s, control);
    QVERIFY_THROWS_EXCEPTION(RuntimeException, _SetProperties(control, {.Name = "child", .InitialParent = "nobody"}));
  }

  // The last one: it ends the program.
  void eventsDuringASaveTakeTheirTurn() {
    TestedWindow w;
    const QString path = folder_.filePath("saved.ppc"), file = WriteFile(folder_.filePath("dropped.txt"), "dropped\n");
    w.SetText(kLongText);
    QTRY_VERIFY_WITH_TIMEOUT(w.IsWhole(), 20000);
    TestedWindow::Choose(w.pocket);
    QStringList then;
    w.user.afterDialogs = [&] {
      w.palm->setChecked(true);                   // as accessibility clients do; the file is of the format chosen last
      QTest::mouseClick(w.save, Qt::LeftButton);  // as the system ends the program, its dialog is not shown
      TestedWindow::Choose(w.pocket);
      QTest::keyClick(w.txt, Qt::Key_X);
      then += w.Drop({}, {"file://" + file});
      RequestQuitBySystem();
      w.Drop("too late");
      if (w.palm->isChecked()) then += "still Palm";
      if (w.frame->isVisible()) then += "still open";
      if (ReadFile(path).size() < 78 + 221 * 8000) then += "still saving";
    };
    w.Click(w.save, path);
    QCOMPARE(then, QStringList({"CopyAction", "still Palm", "still open", "still saving"}));
    QCOMPARE(ReadFile(path), model::SavedFile(kLongText.toStdString(), true));
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
