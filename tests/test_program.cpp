// The program as a process: how it starts and ends, what it leaves, and that it is quiet.
#include <signal.h>
#include <unistd.h>

#include "tests/files.h"

class TestProgram : public QObject {
  Q_OBJECT

 private slots:
  void endsInOrderWhenItIsAskedTo() {
    struct Row {
      int signal;
      const char *before, *after;  // the preferences file
    };
    // clang-format off
    const Row rows[] = {{SIGTERM, nullptr, "0\n"}, {SIGINT, "1\r\nmore", "1\n"}, {SIGHUP, "0", "0\n"}, {SIGTERM, "2", "1\n"}};
    // clang-format on
    for (const Row& row : rows) {
      QTemporaryDir home;
      const QString folder = home.filePath("a/new/folder"), preferences = folder + "/CelestrixSatellite.prefs";
      if (row.before != nullptr) {
        QVERIFY(QDir().mkpath(folder));
        WriteFile(preferences, row.before);
      }
      RunAndEnd(folder, row.signal);
      QCOMPARE(ReadFile(preferences), row.after);
    }
    QTemporaryDir home;
    RunAndEnd(WriteFile(home.filePath("file"), "") + "/no folder", SIGTERM);  // the choice is lost, and nothing else
  }

 private:
  void RunAndEnd(const QString& configuration, int signal) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", configuration);
    environment.insert("LC_ALL", "de_DE.UTF-8");
    environment.remove("XDG_RUNTIME_DIR");
    environment.remove("DBUS_SESSION_BUS_ADDRESS");
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(qEnvironmentVariable("CELESTRIX_PROGRAM"), {});
    QVERIFY(process.waitForStarted());
    // It answers signals in its own way from the moment when it catches them.
    const QByteArray caught = "/proc/" + QByteArray::number(process.processId()) + "/status";
    QTRY_VERIFY_WITH_TIMEOUT(Catches(caught, signal), 20000);
    kill(static_cast<pid_t>(process.processId()), signal);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAll(), QByteArray());
    QVERIFY(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0);
  }

  static bool Catches(const QByteArray& statusFile, int signal) {
    for (const QByteArray& line : QByteArray::fromStdString(ReadFile(statusFile)).split('\n'))
      if (line.startsWith("SigCgt:")) return (line.mid(7).trimmed().toULongLong(nullptr, 16) >> (signal - 1) & 1) != 0;
    return false;
  }
};

QTEST_GUILESS_MAIN(TestProgram)
#include "test_program.moc"
