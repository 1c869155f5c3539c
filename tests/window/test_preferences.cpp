// The remembered choice.
#include "tests/window/fixture.h"

class TestPreferences : public QObject {
  Q_OBJECT

 private slots:
  void aPreferenceForNothing() {
    ReleaseImplicitWindows();  // the one that the start has opened
    WriteFile(PreferencesPath(), "2");
    TestedWindow w;
    QCOMPARE(Differences(w.NextAlert(), {.text = "The window has no control “FileFormat” with the number 2."}), "");
    QVERIFY(QFile::remove(PreferencesPath()));
  }
};

int main(int argc, char** argv) { return RunTest<TestPreferences>(argc, argv); }
#include "test_preferences.moc"
