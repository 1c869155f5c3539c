// The choice that the window opens with. (What is left of it at the end: test_program.cpp.)
#include "tests/window/fixture.h"

class TestPreferences : public QObject {
  Q_OBJECT

 private slots:
  void opensWithTheRememberedChoice_data() {
    QTest::addColumn<QByteArray>("remembered");
    QTest::addColumn<QString>("chosen");
    QTest::newRow("0") << QByteArray("0\n") << "Palm (PDB)";
    QTest::newRow("1") << QByteArray("1\n") << "Pocket PC (PPC)";
    QTest::newRow("1, no line end") << QByteArray("1") << "Pocket PC (PPC)";
    QTest::newRow("1, and more lines") << QByteArray("1\r\n0\r\n") << "Pocket PC (PPC)";
    QTest::newRow("empty file") << QByteArray() << "Palm (PDB)";
    QTest::newRow("empty line") << QByteArray("\n1\n") << "Palm (PDB)";
    QTest::newRow("words") << QByteArray("words\n1") << "Palm (PDB)";
  }
  void opensWithTheRememberedChoice() {
    QFETCH(QByteArray, remembered);
    QFETCH(QString, chosen);
    WriteFile(PreferencesPath(), remembered);
    TestedWindow w;
    QCOMPARE(Chosen(w), chosen);
  }

  void saysThatThereIsNoSuchChoice() {
    WriteFile(PreferencesPath(), "2");
    TestedWindow w;
    QCOMPARE(Differences(w.NextAlert(), {.text = "The window has no control “FileFormat” with the number 2."}), "");
    QCOMPARE(Chosen(w), "");
  }

  void oneChoiceClearsTheOther() {
    WriteFile(PreferencesPath(), "0");
    TestedWindow w;
    TestedWindow::Choose(w.pocket);
    QCOMPARE(Chosen(w), "Pocket PC (PPC)");
    TestedWindow::Choose(w.palm);
    QCOMPARE(Chosen(w), "Palm (PDB)");
  }

  void init() { ReleaseImplicitWindows(); }  // the one that the start has opened

 private:
  static QString Chosen(const TestedWindow& w) {
    QStringList chosen;
    for (const QRadioButton* button : {w.palm, w.pocket})
      if (button->isChecked()) chosen += button->text();
    return chosen.join(" and ");
  }
};

int main(int argc, char** argv) { return RunTest<TestPreferences>(argc, argv); }
#include "test_preferences.moc"
