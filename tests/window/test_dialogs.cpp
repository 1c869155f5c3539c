// The dialogs that ask for a file, and the alerts.
#include "tests/window/fixture.h"

class TestDialogs : public QObject {
  Q_OBJECT

 private slots:
  void asksForATextFile() {
    TestedWindow w;
    w.Click(w.browse, WriteFile(Path("a.txt"), "a"));
    const Dialog expected = {
        .files = "ExistingFile", .title = "Open", .filters = "Text (*.txt *.[tT][xX][tT])", .folder = folder_.path()};
    QCOMPARE(Differences(w.Click(w.browse, ""), expected), "");
  }

  void asksWhereToSave_data() {
    QTest::addColumn<bool>("palm");
    QTest::addColumn<QString>("filters");
    QTest::addColumn<QString>("proposedName");
    QTest::newRow("Palm") << true << "PDB (*.pdb *.[pP][dD][bB])"
                          << "celestrix_satellites.pdb";
    QTest::newRow("Pocket PC") << false << "PPC (*.ppc *.[pP][pP][cC])"
                               << "celestrix_satellites.ppc";
  }
  void asksWhereToSave() {
    QFETCH(bool, palm);
    QFETCH(QString, filters);
    QFETCH(QString, proposedName);
    TestedWindow w;
    w.Drop("a\nb");
    TestedWindow::Choose(palm ? w.palm : w.pocket);
    const QString path = WriteFile(Path("-a b%20é"), "old");
    w.Click(w.save, path);
    QCOMPARE(Difference(ReadFile(path), model::SavedFile("a\nb", palm)), "");
    Dialog expected = {.mode = "AcceptSave",
                       .title = "Save As",
                       .filters = filters,
                       .proposedName = proposedName,
                       .folder = folder_.path(),
                       .asksToReplace = true};
    QCOMPARE(Differences(w.Click(w.save, path), expected), "");
    expected.asksToReplace = false;
    QCOMPARE(Differences(w.Click(w.save, ""), expected), "");
    QCOMPARE(Difference(ReadFile(path), model::SavedFile("a\nb", palm)), "");
  }

  void saysWhyNothingIsSaved() {
    TestedWindow w;
    w.Drop("a");
    const QString place = WriteFile(Path("file"), "") + "/in.it";
    w.Click(w.save, place);
    const QString alert = QString("“%1” could not be created: %2.").arg(place, std::strerror(ENOTDIR));
    QCOMPARE(Differences(w.NextAlert(), {.text = alert}), "");
  }

  void saysWhatFailsInAnEventOfQtsOwn_data() {
    QTest::addColumn<std::function<void()>>("fail");
    QTest::addColumn<QString>("alert");
    const auto row = [](const char* name, const QString& alert, const std::function<void()>& fail) {
      QTest::newRow(name) << fail << alert;
    };
    row("no memory", "There is not enough memory.", [] { throw std::bad_alloc(); });
    row("no parent", "The window has no control “nobody”.", PutIntoNobody);
  }
  void saysWhatFailsInAnEventOfQtsOwn() {
    QFETCH(std::function<void()>, fail);
    QFETCH(QString, alert);
    TestedWindow w;
    QMetaObject::invokeMethod(qApp, fail, Qt::QueuedConnection);
    QCOMPARE(Differences(w.NextAlert(), {.text = alert}), "");
  }

 private:
  static void PutIntoNobody() {
    const auto child = New<StaticText>();
    Window1::Shared()->AddControl("child"_s, child);
    _SetProperties(child, {.Name = "child", .InitialParent = "nobody"});
  }
  QString Path(const QString& name) const { return folder_.filePath(name); }

  QTemporaryDir folder_;
};

int main(int argc, char** argv) { return RunTest<TestDialogs>(argc, argv); }
#include "test_dialogs.moc"
