// The menus, their commands and the keys.
#include "tests/window/fixture.h"

namespace {

/// The text of another program, which counts how often it is fetched.
struct ForeignText final : QMimeData {
  mutable int fetched = 0;
  QStringList formats() const override { return {"text/plain"}; }
  QVariant retrieveData(const QString& /*type*/, QMetaType /*to*/) const override { return ++fetched; }
};

}  // namespace

class TestMenuBar : public QObject {
  Q_OBJECT

 private slots:
  void menusHaveTheirItems() {
    TestedWindow w;
    QStringList shown;
    for (const QAction* menu : w.frame->menuBar()->actions()) {
      shown += menu->text();
      for (const QAction* item : menu->menu()->actions())
        shown += item->isSeparator() ? "separator" : item->text() + ' ' + item->shortcut().toString();
    }
    const QStringList expected = {
        "&File",        "&Quit Ctrl+Q",  "&Edit",    "&Undo Ctrl+Z", "separator",         "Cu&t Ctrl+X",
        "&Copy Ctrl+C", "&Paste Ctrl+V", "&Delete ", "separator",    "Select &All Ctrl+A"};
    QCOMPARE(shown, expected);
  }

  void anotherProgramsTextIsFetchedOnlyToPasteIt() {
    auto* content = new ForeignText;
    QGuiApplication::clipboard()->setMimeData(content);
    TestedWindow w;
    w.txt->setFocus();
    QTRY_VERIFY2(w.Command("EditPaste")->isEnabled(), "waited for the look at what was in the clipboard before");
    QCOMPARE(content->fetched, 0);
    QTest::keyClick(w.txt, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(w.Text(), "1");
  }

  void aFileIsNotPasted() {
    auto* file = new QMimeData;
    file->setUrls({QUrl("file:///a.txt")});
    TestedWindow w;
    w.txt->setFocus();
    QGuiApplication::clipboard()->setMimeData(file);
    QVERIFY(!w.Command("EditPaste")->isEnabled());
    QTest::keyClick(w.txt, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(w.Text(), "");
  }

  void commandsAreEnabledWhileTheyApply() {
    TestedWindow w;
    w.Drop("text");
    w.txt->setFocus();
    QTest::keyClick(w.txt, Qt::Key_X);
    QTest::keyClick(w.txt, Qt::Key_End, Qt::ShiftModifier);
    w.frame->menuBar()->setFocus();
    QVERIFY2(w.Command("EditCut")->isEnabled(), "Cut, after a menu was opened");
    w.Command("EditUndo")->trigger();
    QVERIFY2(!w.Command("EditCut")->isEnabled(), "Cut, after undoing ended the selection");
    w.browse->setFocus();
    QVERIFY2(!w.Command("EditSelectAll")->isEnabled(), "Select All, after the focus went elsewhere");
  }

  void tabVisitsTheControlsInTheirOrder() {
    TestedWindow w;
    w.Drop("text");
    w.txt->setFocus();
    for (const QWidget* next : std::initializer_list<QWidget*>{w.browse, w.save, w.palm, w.txt}) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QCOMPARE(QApplication::focusWidget(), next);
    }
  }
};

int main(int argc, char** argv) { return RunTest<TestMenuBar>(argc, argv); }
#include "test_menu_bar.moc"
