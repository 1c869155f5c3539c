// The dialogs that ask for a file, and the alerts.
#include "tests/window/fixture.h"

namespace {

const QString kTitle = "Celestrix Satellite Encoder", kAlert = kTitle + "|" + kTitle + "|PlainText|";

}  // namespace

class TestDialogs : public QObject {
  Q_OBJECT

 private slots:
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

 private:
  QTemporaryDir folder_;
};

int main(int argc, char** argv) { return RunTest<TestDialogs>(argc, argv); }
#include "test_dialogs.moc"
