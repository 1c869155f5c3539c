// The dialogs that ask for a file, and the alerts.
#include "tests/window/fixture.h"

class TestDialogs : public QObject {
  Q_OBJECT

 private slots:
  void asksForAFile_data() {
    AddRows({{"to open", "txt", "Open | Text (*.txt *.[tT][xX][tT]) | "},
             {"for Palm", "pdb", "Save As | PDB (*.pdb *.[pP][dD][bB]) | celestrix_satellites.pdb"},
             {"for Pocket PC", "ppc", "Save As | PPC (*.ppc *.[pP][pP][cC]) | celestrix_satellites.ppc"}});
  }
  void asksForAFile() {
    QFETCH(const QByteArray, in);
    QFETCH(const QByteArray, out);
    const bool opens = in == "txt", palm = in == "pdb";
    TestedWindow w;
    w.Fill("a\nb\nc");
    TestedWindow::Choose(palm ? w.palm : w.pocket);
    const QString path = WriteFile(Path("-a b%20é.txt"), "old");
    w.Click(opens ? w.browse : w.save, path);
    w.inDialog = [&](const QFileDialog& dialog) {
      QCOMPARE(dialog.windowTitle() + " | " + dialog.nameFilters().join(',') + " | " + NameIn(dialog), QString(out));
      QCOMPARE(dialog.directory().path(), folder_.path());
      QCOMPARE(dialog.fileMode(), opens ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
      QCOMPARE(dialog.acceptMode(), opens ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
      QVERIFY2(dialog.testOption(QFileDialog::HideNameFilterDetails), "the patterns are shown");
      QVERIFY2(!dialog.testOption(QFileDialog::DontConfirmOverwrite), "a file is replaced without a question");
    };
    w.Click(opens ? w.browse : w.save, "");
    QCOMPARE(w.Text(), opens ? "old" : "a\nb\nc");
    QCOMPARE(Difference(ReadFile(path), opens ? "old" : model::SavedFile(w.Text(), palm)), "");
  }

  void aNameIsUsedAsItIsOrRefused_data() {
    AddRows({{"two slashes", "/%1/saved", ""},
             {"quotation marks", "%1/my \"best\" sats", "“%1” has quotation marks in its name."},
             {"in a file", "%1/best/sats", "“%1” could not be created: Not a directory."}});
  }
  void aNameIsUsedAsItIsOrRefused() {
    QFETCH(const QByteArray, in);
    QFETCH(const QByteArray, out);
    TestedWindow w;
    w.Fill("a\nb\nc");
    const QString best = WriteFile(Path("best"), "old"), name = QString(in).arg(folder_.path());
    w.Click(w.save, name);
    if (!out.isEmpty()) QCOMPARE(w.NextAlert(), QString(out).arg(name));
    QCOMPARE(ReadFile(best), "old");
    QCOMPARE(QFile::exists(name), out.isEmpty());
  }

  void aFolderThatHasBeenDeletedIsNotProposedAsAFile() {
    TestedWindow w;
    QVERIFY(QDir(folder_.path()).mkdir("gone"));
    w.Click(w.browse, WriteFile(Path("gone/other.txt"), "a"));
    QVERIFY(QDir(Path("gone")).removeRecursively());
    w.inDialog = [](const QFileDialog& dialog) { QCOMPARE(NameIn(dialog), ""); };
    w.Click(w.browse, "");
  }

  void saysWhyNoFileIsOpened() {
    QDir(folder_.path()).mkdir("d.txt");
    TestedWindow w;
    QCOMPARE(w.Drop({}, {"file://" + Path("d.txt")}), "copied");
    QCOMPARE(w.NextAlert(), QString("“%1” could not be opened: Is a directory.").arg(Path("d.txt")));
  }

  void saysThatThereIsNoMemory() {
    TestedWindow w;
    QTimer::singleShot(0, [] { throw std::bad_alloc(); });
    QCOMPARE(w.NextAlert(), "There is not enough memory.");
  }

  void saysWhyNoFormatIsChosen_data() {
    AddRows({{"no such format", "2", "The window has no control “FileFormat” number 2."},
             {"a file that cannot be read", "", "“%1” could not be opened: It is too large."}});
  }
  void saysWhyNoFormatIsChosen() {
    QFETCH(const QByteArray, in);
    QVERIFY(QFile::resize(WriteFile(PreferencesPath(), in), in.isEmpty() ? INT32_MAX : in.size()));
    ReleaseImplicitWindows();  // so that one opens with it
    TestedWindow w;
    QTEST(w.NextAlert().replace(PreferencesPath(), "%1").toUtf8(), "out");
    QVERIFY(!w.palm->isChecked() && !w.pocket->isChecked());
  }

  // The last test: with the window, the program ends.
  void saysWhyTheChoiceIsNotKept() {
    QFile::remove(PreferencesPath());
    QDir().mkdir(PreferencesPath());
    ReleaseImplicitWindows();
    TestedWindow w;
    QEventLoop program;  // which the alert's own loop needs around it
    QTimer::singleShot(0, w.frame, &QWidget::close);
    QTimer::singleShot(20000, &program, &QEventLoop::quit);
    program.exec();
    QCOMPARE(w.NextAlert(), QString("“%1” could not be created: Is a directory.").arg(PreferencesPath()));
    QVERIFY2(!w.frame->isVisible(), "the window stays open");
  }

 private:
  static QString NameIn(const QFileDialog& dialog) { return dialog.findChild<QLineEdit*>("fileNameEdit")->text(); }
  QString Path(const QString& name) const { return folder_.filePath(name); }

  QTemporaryDir folder_;
};

int main(int argc, char** argv) { return RunTest<TestDialogs>(argc, argv); }
#include "test_dialogs.moc"
