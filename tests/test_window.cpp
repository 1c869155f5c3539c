// The window: layout, ways of the text into it, saving, menus, preferences, and what happens in the middle of a save.

#include "tests/model.h"
#include "tests/window_fixture.h"

using namespace celestrix;

namespace {

std::string Elements(int sets) {
  std::string text;
  for (int i = 0; i < sets; ++i)
    text += "SAT " + std::to_string(i) + "\n1 " + std::string(67, '1') + "\n2 " + std::string(67, '2') + "\n";
  return text;
}

}  // namespace

class TestWindow : public QObject {
  Q_OBJECT

 private slots:
  void controlsStandWhereTheyShould() {
    TestedWindow w;
    QCOMPARE(w.frame->windowTitle(), "Celestrix Satellite Encoder");
    QVERIFY(!w.save->isEnabled() && w.palm->isChecked() && w.txt->tabChangesFocus());
    auto* const label = w.frame->findChild<QLabel*>("StaticText1");
    QVERIFY(label->palette().color(QPalette::WindowText) == QColor(0x7F, 0x7F, 0x7F));
    QVERIFY(label->heightForWidth(466) > 20 && label->heightForWidth(466) <= 55);
    QVERIFY(w.txt->verticalScrollBar()->isVisible() && !w.txt->horizontalScrollBar()->isVisible());
    struct Row {
      const char* name;
      QRect at;
      int right, down, wider, higher;  // of 100 pixels, when the window grows by 100 both ways
      QAccessible::Role role;
      const char* spoken;
    };
    const QByteArray instructions = w.frame->findChild<QWidget*>("StaticText1")->property("text").toByteArray();
    const Row rows[] = {{"StaticText1", {20, 14, 466, 55}, 0, 0, 1, 0, QAccessible::StaticText, instructions},
                        {"txt", {20, 81, 466, 275}, 0, 0, 1, 1, QAccessible::EditableText, instructions},
                        {"BrowseBtn", {20, 380, 80, 20}, 0, 1, 0, 0, QAccessible::Button, "Browse..."},
                        {"SaveBtn", {406, 380, 80, 20}, 1, 1, 0, 0, QAccessible::Button, "Save..."},
                        {"GroupBox1", {143, 360, 221, 46}, 0, 1, 0, 0, QAccessible::Grouping, "Celestrix file format"},
                        {"FileFormat", {153, 380, 81, 20}, 0, 1, 0, 0, QAccessible::RadioButton, "Palm (PDB)"},
                        {"FileFormat", {246, 380, 110, 20}, 0, 1, 0, 0, QAccessible::RadioButton, "Pocket PC (PPC)"}};
    QWidget* content = w.frame->centralWidget();
    const QSize frameSize = w.frame->size();
    for (const int growth : {0, 100, -100, -1000, 0}) {
      w.frame->resize(frameSize + QSize(growth, growth));
      const int real = std::max(growth, 64 - 506), realDown = std::max(growth, 64 - 426);
      QTRY_COMPARE(content->size(), QSize(506 + real, 426 + realDown));
      for (const Row& row : rows) {
        QWidget* control = nullptr;
        for (QWidget* found : content->findChildren<QWidget*>(row.name))
          if (control == nullptr || found->mapTo(content, QPoint()).x() == row.at.x()) control = found;
        const QRect expected(row.at.topLeft() + QPoint(row.right * real, row.down * realDown),
                             QSize(std::max(0, row.at.width() + row.wider * real),
                                   std::max(0, row.at.height() + row.higher * realDown)));
        QCOMPARE(QRect(control->mapTo(content, QPoint()), control->size()), expected);
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(control);
        QCOMPARE(spoken->role(), row.role);
        QCOMPARE(spoken->text(QAccessible::Name), QString::fromUtf8(row.spoken));
      }
    }
  }

  void theWholeJobGoesWithoutAMouse() {
    TestedWindow w;
    QTest::keyClicks(w.txt, "a line");
    const QWidget* order[] = {w.browse, w.save, w.palm, w.txt};
    w.txt->setFocus();
    for (const QWidget* next : order) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QCOMPARE(QApplication::focusWidget(), next);
    }
    TestedWindow::AnswerFileDialog(folder_.filePath("keys.pdb"));
    w.save->setFocus();
    QTest::keyClick(w.save, Qt::Key_Space);
    QCOMPARE(ReadFile(folder_.filePath("keys.pdb")), model::SavedFile("a line", true));
  }

  void dropsReplaceTheText() {
    const QString windows = WriteFile(folder_.filePath("Windows.TXT"), std::string("\xEF\xBB\xBF") + "a\r\nb\rc\n");
    const QString other = WriteFile(folder_.filePath("other.txt"), "other"),
                  pdf = WriteFile(folder_.filePath("x.pdf"), "pdf");
    const QString empty = WriteFile(folder_.filePath("empty.txt"), "");
    TestedWindow w;
    QVERIFY(w.DropFiles({windows, other}));
    QCOMPARE(w.Text(), "a\nb\nc\n");
    QVERIFY(w.save->isEnabled());
    QVERIFY(!w.DropFiles({pdf, other}, "its name"));  // as file managers offer them
    QCOMPARE(w.Text(), "a\nb\nc\n");
    QVERIFY(w.DropText("A\r\nB"));
    QCOMPARE(w.Text(), "A\r\nB");
    QVERIFY(w.DropFiles({"https://example.org/elements.txt"}, "far away"));
    w.Click(w.browse, "");
    QCOMPARE(w.Text(), "far away");
    w.Click(w.browse, other);
    QCOMPARE(w.Text(), "other");
    QVERIFY(w.DropText("far away"));

    QVERIFY(QDir().mkpath(folder_.filePath("folder.txt")));
    QString alert;
    TestedWindow::ExpectAlert(&alert);
    QVERIFY(w.DropFiles({folder_.filePath("folder.txt")}));
    QTRY_COMPARE(alert, "“" + folder_.filePath("folder.txt") + "” could not be opened: Is a directory.");
    QCOMPARE(w.Text(), "far away");
    QVERIFY(w.DropFiles({empty}) && !w.save->isEnabled());
  }

  void textIsKeptExactly() {
    TestedWindow w;
    const std::string nul(1, '\0');
    for (const std::string& text : {std::string("a\r\nb\rc\n\n"),
                                    std::string("\u00A0|\u2028|\uFFFC|\U0001F6F0|e\u0301|\uFEFF"), nul + "|" + nul}) {
      w.SetText(text);
      QCOMPARE(w.Text(), text);
      w.txt->moveCursor(QTextCursor::End);
      QTest::keyClick(w.txt, Qt::Key_X);
      QCOMPARE(w.Text(), model::TextOfFile(text) + "x");
      QGuiApplication::clipboard()->setText(QString::fromStdString(text));
      w.txt->selectAll();
      w.txt->paste();
      QCOMPARE(w.Text(), model::TextOfFile(text));
    }
    w.SetText("a\u2029b\uFDD0c\uFDD2");
    QCOMPARE(w.Text(), "a\u2029b\uFDD0c\uFDD2");
    QTest::keyClick(w.txt, Qt::Key_X);
    QCOMPARE(w.Text(), "xa\nb\nc");
  }

  void aLongTextIsWholeFromTheStart() {
    TestedWindow w;
    // Slices and pieces of the long line would end within a character, and between CR and LF.
    const std::string text = Elements(20000) + "x" + QString("\U0001F6F0").repeated(22527).toStdString() +
                             std::string(8191, 'x') + "\r\n\U0001F6F0 é";
    w.SetText(text);
    QVERIFY(!w.IsWhole() && w.save->isEnabled());
    QCOMPARE(w.Text(), text);
    QTest::keyClick(w.txt, Qt::Key_A, Qt::ControlModifier);  // waits for the whole text
    QTest::keyClick(w.txt, Qt::Key_X, Qt::ControlModifier);
    QVERIFY(!w.IsWhole() && w.save->isEnabled() && !w.txt->textCursor().hasSelection());
    QVERIFY(w.Text().empty() && w.IsWhole() && !w.save->isEnabled());
    QVERIFY(QGuiApplication::clipboard()->text().toStdString() == model::TextOfFile(text));
    QVERIFY_THROWS_EXCEPTION(RuntimeException, w.SetText(std::string((1 << 24) + 1, '\n')));
    QTest::keyClick(w.txt, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(w.Text() == model::TextOfFile(text) && w.save->isEnabled());

    for (const bool all : {false, true}) {  // as an accessibility client edits, who does not wait
      w.SetText(text);
      QTextCursor cursor = w.txt->textCursor();
      if (all) cursor.select(QTextCursor::Document);
      cursor.insertText("new ");
      QVERIFY(w.Text() == (all ? "new " : "new " + text));
      QTRY_VERIFY(w.IsWhole());
      QVERIFY(w.Text() == (all ? "new " : "new " + model::TextOfFile(text)));
    }
    w.SetText(text);
    QTest::keyClick(w.txt, Qt::Key_X);
    QTest::keyClick(w.txt, Qt::Key_Tab);
    QVERIFY(w.browse->hasFocus());
    w.SetText("short");  // the key was for the text before
    QCOMPARE(w.Text(), "short");
  }

  void savesInBothFormats() {
    TestedWindow w;
    const std::string text =
        "ALPHA\n" + std::string(69, '1') + "\n \n" + std::string(71, '2') + "\n" + std::string(72, '3') + "\nlast";
    w.SetText(text);
    for (const bool palm : {true, false}) {
      QTest::mouseClick(palm ? w.palm : w.pocket, Qt::LeftButton, Qt::NoModifier, QPoint(8, 10));
      QCOMPARE(w.palm->isChecked(), palm);
      QCOMPARE(w.Click(w.save, ""),
               palm ? "celestrix_satellites.pdbPDB (*.pdb *.PDB)" : "celestrix_satellites.ppcPPC (*.ppc *.PPC)");
      const QString path = WriteFile(folder_.filePath("-a b%20é"), std::string(9999, 'x'));
      w.Click(w.save, path);
      QCOMPARE(ReadFile(path), model::SavedFile(text, palm));
    }
    const QString there = WriteFile(folder_.filePath("file"), "") + "/in.it";
    QString alert;
    QTimer::singleShot(0, qApp, [&] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      dialog->selectFile(there);
      TestedWindow::ExpectAlert(&alert);
      static_cast<QDialog*>(dialog)->done(QDialog::Accepted);  // past the dialog's own look at the place
    });
    QTest::mouseClick(w.save, Qt::LeftButton);
    QTRY_COMPARE(alert, "“" + there + "” could not be created: Not a directory.");
    QCOMPARE(w.Text(), text);
  }

  void menusDoWhatTheySay() {
    TestedWindow w;
    const QList<QMenu*> menus = w.frame->menuBar()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly);
    QStringList texts;
    for (QAction* action : menus.at(0)->actions() + menus.at(1)->actions())
      texts += action->text() + action->shortcut().toString();
    QCOMPARE(texts.join('|'),
             "&QuitCtrl+Q|&UndoCtrl+Z||Cu&tCtrl+X|&CopyCtrl+C|&PasteCtrl+V|&Delete||Select &AllCtrl+A");
    const auto enabled = [&](const QStringList& names) {
      for (QAction* action : menus.at(1)->actions())
        if (!action->isSeparator() && action->isEnabled() != names.contains(action->objectName())) return false;
      return true;
    };
    const auto choose = [&](const char* name) { w.frame->findChild<QAction*>(name)->trigger(); };
    QGuiApplication::clipboard()->clear();
    w.browse->setFocus();
    w.txt->setFocus();
    QVERIFY(enabled({}));
    QGuiApplication::clipboard()->setText("pasted");
    QVERIFY(enabled({"EditPaste"}));
    choose("EditPaste");
    QVERIFY(w.Text() == "pasted" && w.save->isEnabled() && enabled({"EditPaste", "EditUndo", "EditSelectAll"}));
    choose("EditSelectAll");
    QVERIFY(enabled({"EditPaste", "EditUndo", "EditSelectAll", "EditCut", "EditCopy", "EditClear"}));
    choose("EditClear");
    QVERIFY(w.Text().empty() && !w.save->isEnabled());
    choose("EditUndo"), choose("EditSelectAll"), choose("EditCut");
    QVERIFY(w.Text().empty() && QGuiApplication::clipboard()->text() == "pasted");
    w.browse->setFocus();
    QVERIFY(enabled({}));
  }

  void preferencesChooseTheFormat() {
    // clang-format off
    const std::map<std::string, int> chosenBy = {{"", 0}, {"0\n", 0}, {"1", 1}, {"1\r\n0", 1}, {"\n1", 0}, {"words", 0}, {"2", -1}, {"1e99", -1}};
    // clang-format on
    for (const auto& [content, chosen] : chosenBy) {  // -1: neither
      WriteFile(PreferencesPath(), content);
      TestedWindow w;
      QCOMPARE(w.palm->isChecked(), chosen == 0);
      QCOMPARE(w.pocket->isChecked(), chosen == 1);
      if (chosen != -1) continue;
      QString alert;
      TestedWindow::ExpectAlert(&alert);
      QTRY_VERIFY(alert.contains("FileFormat"));
    }
    QFile::remove(PreferencesPath());
    QVERIFY(QDir().mkdir(PreferencesPath()));
    QVERIFY(TestedWindow().palm->isChecked());
    QVERIFY(QDir().rmdir(PreferencesPath()));
  }

  // The last one: it ends the program.
  void eventsDuringASaveTakeTheirTurn() {
    TestedWindow w;
    const std::string text = Elements(20000);
    const QString first = folder_.filePath("first.pdb"),
                  dropped = WriteFile(folder_.filePath("dropped.txt"), "dropped\n");
    w.SetText(text);
    QTRY_VERIFY(w.IsWhole());
    QStringList happened;
    QTimer::singleShot(0, qApp, [&] {
      TestedWindow::AnswerFileDialog(first);
      const auto during = [&] { return QFile::exists(first) && QApplication::activeModalWidget() == nullptr; };
      auto* user = new QTimer(qApp);
      QObject::connect(user, &QTimer::timeout, qApp, [&, during, user] {
        if (!during()) return;
        user->deleteLater();
        TestedWindow::AnswerFileDialog(first);
        QTest::mouseClick(w.save, Qt::LeftButton);  // the same place again
        QTest::mouseClick(w.pocket, Qt::LeftButton, Qt::NoModifier, QPoint(8, 10));
        QTest::keyClick(w.txt, Qt::Key_X);
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(dropped)});
        w.Drop(mime);
        w.frame->close();
        w.DropText("too late");
        if (w.palm->isChecked() && w.frame->isVisible() && ReadFile(first).size() < 78 + 221 * 20000)
          happened += "during";
      });
      user->start(0);
    });
    w.Click(w.save, first);
    QCOMPARE(happened, QStringList("during"));
    QVERIFY(ReadFile(first) == model::SavedFile("x" + text, true));  // by the second save, in its turn
    QCOMPARE(w.Text(), "dropped\n");
    QTest::mouseClick(w.palm, Qt::LeftButton, Qt::NoModifier, QPoint(8, 10));  // and so is this
    QVERIFY(w.pocket->isChecked());
    QCOMPARE(ReadFile(PreferencesPath()), "1\n");
  }

 private:
  QTemporaryDir folder_;
};

int main(int argc, char** argv) {
  Program program(argc, argv);
  TestWindow test;
  return QTest::qExec(&test, argc, argv);
}
#include "test_window.moc"
