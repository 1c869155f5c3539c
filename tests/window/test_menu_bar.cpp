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
  void menusHaveTheirItems_data() {
    QTest::addColumn<int>("menu");
    QTest::addColumn<QStringList>("items");
    QTest::newRow("&File") << 0 << QStringList{"&Quit Ctrl+Q"};
    QTest::newRow("&Edit") << 1 << QStringList{"&Undo Ctrl+Z",  "separator", "Cu&t Ctrl+X", "&Copy Ctrl+C",
                                               "&Paste Ctrl+V", "&Delete ",  "separator",   "Select &All Ctrl+A"};
  }
  void menusHaveTheirItems() {
    QFETCH(int, menu);
    QFETCH(QStringList, items);
    TestedWindow w;
    QCOMPARE(w.frame->menuBar()->actions().size(), 2);
    const QAction* title = w.frame->menuBar()->actions().at(menu);
    QCOMPARE(title->text(), QTest::currentDataTag());
    QStringList shown;
    for (const QAction* item : title->menu()->actions())
      shown += item->isSeparator() ? "separator" : item->text() + ' ' + item->shortcut().toString();
    QCOMPARE(shown, items);
  }

  void theWindowFindsItsItemsByTheirNames() {
    TestedWindow w;
    Window1& bar = *w.window;
    const std::pair<Ref<MenuItem>, QByteArray> items[] = {
        {bar.FileMenu(), "FileMenu"},   {bar.FileQuit(), "FileQuit"},   {bar.EditMenu(), "EditMenu"},
        {bar.EditUndo(), "EditUndo"},   {bar.EditCut(), "EditCut"},     {bar.EditCopy(), "EditCopy"},
        {bar.EditPaste(), "EditPaste"}, {bar.EditClear(), "EditClear"}, {bar.EditSelectAll(), "EditSelectAll"}};
    for (const auto& [item, name] : items) QCOMPARE(Bytes(item->Name), name);
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

  void whatIsNoTextIsNotPasted_data() {
    QTest::addColumn<QMimeData*>("content");
    auto* file = new QMimeData;
    file->setUrls({QUrl("file:///a.txt")});
    QTest::newRow("a file") << file;
    QTest::newRow("nothing") << new QMimeData;
    QTest::newRow("of a program that has ended") << static_cast<QMimeData*>(nullptr);
  }
  void whatIsNoTextIsNotPasted() {
    QFETCH(QMimeData*, content);
    TestedWindow w;
    w.Drop("before");
    w.txt->setFocus();
    QGuiApplication::clipboard()->setMimeData(content);
    QVERIFY(!w.Command("EditPaste")->isEnabled());
    QTest::keyClick(w.txt, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(w.Text(), "before");
  }

  void deletingLeavesTheClipboardAlone() {
    TestedWindow w;
    w.Drop("before");
    w.txt->selectAll();
    w.txt->setFocus();
    QGuiApplication::clipboard()->setText("copied");
    w.Command("EditClear")->trigger();
    QCOMPARE(w.Text(), "");
    QCOMPARE(QGuiApplication::clipboard()->text(), "copied");
  }

  void commandsAreForTheFieldThatHasTheFocus() {
    TestedWindow w;
    w.Drop("text");
    w.txt->setFocus();
    QVERIFY(w.Command("EditSelectAll")->isEnabled());
    w.frame->menuBar()->setFocus();  // opening a menu does not take it away
    QVERIFY(w.Command("EditSelectAll")->isEnabled());
    w.browse->setFocus();
    QVERIFY(!w.Command("EditSelectAll")->isEnabled());
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
