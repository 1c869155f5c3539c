// The dialogs that ask for a file, and the alerts.
#include "tests/window/fixture.h"

class TestDialogs : public QObject {
  Q_OBJECT

 private slots:
  void asksForATextFile() {
    TestedWindow w;
    w.Click(w.browse, WriteFile(Path("a.txt"), "a"));
    w.inDialog = [&](const QFileDialog& dialog) {
      QCOMPARE(dialog.windowTitle(), "Open");
      QCOMPARE(dialog.fileMode(), QFileDialog::ExistingFile);
      QCOMPARE(dialog.nameFilters(), QStringList("Text (*.txt *.[tT][xX][tT])"));
      QVERIFY2(dialog.testOption(QFileDialog::HideNameFilterDetails), "the patterns are shown");
      QCOMPARE(dialog.directory().path(), folder_.path());
    };
    w.Click(w.browse, "");
    QCOMPARE(w.Text(), "a");
  }

  void asksWhereToSave_data() {
    AddRows({{"Palm", "celestrix_satellites.pdb", "PDB (*.pdb *.[pP][dD][bB])"},
             {"Pocket PC", "celestrix_satellites.ppc", "PPC (*.ppc *.[pP][pP][cC])"}});
  }
  void asksWhereToSave() {
    QFETCH(const QByteArray, in);
    QFETCH(const QByteArray, out);
    const bool palm = in.endsWith("pdb");
    TestedWindow w;
    w.Drop("a\nb\nc");
    TestedWindow::Choose(palm ? w.palm : w.pocket);
    const QString path = WriteFile(Path("-a b%20é"), "old");
    w.Click(w.save, path);
    w.inDialog = [&](const QFileDialog& dialog) {
      QCOMPARE(dialog.windowTitle(), "Save As");
      QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptSave);
      QCOMPARE(dialog.nameFilters(), QStringList(out));
      QCOMPARE(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), in);
      QCOMPARE(dialog.directory().path(), folder_.path());
      QVERIFY2(!dialog.testOption(QFileDialog::DontConfirmOverwrite), "a file is replaced without a question");
    };
    w.Click(w.save, "");
    QCOMPARE(Difference(ReadFile(path), model::SavedFile("a\nb\nc", palm)), "");
  }

  void saysWhyNothingIsSaved() {
    TestedWindow w;
    w.Drop("a");
    const QString place = WriteFile(Path("file"), "") + "/in.it";
    w.Click(w.save, place);
    QCOMPARE(w.NextAlert(), QString("“%1” could not be created: %2.").arg(place, std::strerror(ENOTDIR)));
  }

  void saysThatThereIsNoMemory() {
    TestedWindow w;
    QTimer::singleShot(0, [] { throw std::bad_alloc(); });
    QCOMPARE(w.NextAlert(), "There is not enough memory.");
  }

  void saysThatThereIsNoSuchChoice() {
    WriteFile(PreferencesPath(), "2");
    ReleaseImplicitWindows();  // so that one opens with it
    TestedWindow w;
    QCOMPARE(w.NextAlert(), "The window has no control “FileFormat” with the number 2.");
    QVERIFY(!w.palm->isChecked() && !w.pocket->isChecked());
  }

 private:
  QString Path(const QString& name) const { return folder_.filePath(name); }

  QTemporaryDir folder_;
};

int main(int argc, char** argv) { return RunTest<TestDialogs>(argc, argv); }
#include "test_dialogs.moc"
