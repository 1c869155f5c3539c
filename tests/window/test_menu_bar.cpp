// The menus, their commands and the keys.
#include "tests/window/fixture.h"

namespace {

/// The text of another program, in one format. It counts how often it is asked for anything.
struct ForeignText final : QMimeData {
  mutable int fetched = 0, asked = 0;
  QStringList formats() const override { return ++asked, QStringList("text/plain;charset=utf-8"); }
  QVariant retrieveData(const QString&, QMetaType) const override { return QByteArray("é").repeated(++fetched); }
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
    QVERIFY(w.Command("EditPaste")->isEnabled());
    QCOMPARE(content->fetched, 0);
    QCOMPARE(content->asked, 1);  // a program that hangs makes each question a wait of seconds
    QTest::keyClick(w.txt, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(content->asked, 2);
    QCOMPARE(w.Text(), "é");
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

  void commandsAreEnabledWhileTheFieldHasTheFocus() {
    TestedWindow w;
    w.Fill("text");
    w.txt->setFocus();
    QTest::mouseClick(w.palm, Qt::LeftButton);
    w.frame->menuBar()->setFocus();
    QVERIFY2(w.Command("EditSelectAll")->isEnabled(), "after a click on a button, and with a menu open");
    w.browse->setFocus();
    QVERIFY2(!w.Command("EditSelectAll")->isEnabled(), "after the focus went elsewhere");
  }

  void theContextMenuNamesNoShortcuts() {
    TestedWindow w;
    w.Fill("text");
    w.txt->selectAll();
    const std::unique_ptr<QMenu> menu(w.txt->createStandardContextMenu());
    for (const QAction* item : menu->actions()) QVERIFY2(!item->text().contains('\t'), qPrintable(item->text()));
  }

  void tabVisitsTheControlsInTheirOrder() {
    TestedWindow w;
    w.Fill("text");
    w.txt->setFocus();
    for (const QWidget* next : std::initializer_list<QWidget*>{w.browse, w.save, w.palm, w.txt}) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QCOMPARE(QApplication::focusWidget(), next);
    }
  }
};

int main(int argc, char** argv) { return RunTest<TestMenuBar>(argc, argv); }
#include "test_menu_bar.moc"
