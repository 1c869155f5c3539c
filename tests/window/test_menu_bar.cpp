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
};

int main(int argc, char** argv) { return RunTest<TestMenuBar>(argc, argv); }
#include "test_menu_bar.moc"
