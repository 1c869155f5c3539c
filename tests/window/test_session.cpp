// The session's end, and what is none.
#include "services/ui/event_queue.h"
#include "tests/window/fixture.h"

class TestSession : public QObject {
  Q_OBJECT

 private slots:
  void anEndThatIsOnlyAnnouncedIsNone() {
    TestedWindow w;
    w.Drop("text");
    // Of the manager that announces it, there is none here.
    QMetaObject::invokeMethod(qApp, "commitDataRequest", QGenericArgument("QSessionManager&", qApp));
    QTest::qWait(0);
    QVERIFY(w.frame->isVisible());
    QCOMPARE(w.Text(), "text");
    QCOMPARE(w.Click(w.browse, "").mode, "AcceptOpen");
  }

  // Ends the program, so no test can follow.
  void theEndIsNotHeldUpByADialogOfTheDesktop() {
    TestedWindow w;
    TestedWindow::Choose(w.pocket);
    QEventLoop dialog;  // such a dialog waits in a loop of its own, and does not close with the windows
    bool isHeldUp = false;
    QTimer::singleShot(0, EndSession);
    QTimer::singleShot(20000, &dialog, [&] {
      isHeldUp = true;
      dialog.quit();
    });
    RaiseEvent([&dialog] { dialog.exec(); });
    QVERIFY(!isHeldUp);
    QCOMPARE(ReadFile(PreferencesPath()), "1\n");
  }
};

int main(int argc, char** argv) { return RunTest<TestSession>(argc, argv); }
#include "test_session.moc"
