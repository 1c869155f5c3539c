// The program as a process: how it starts and ends, what it leaves, and that it is quiet.
#include <signal.h>

#include "tests/files.h"

namespace {

/// A run of the program, in a home of its own, until a signal ends it.
struct Run {
  QTemporaryDir home = {};
  QString preparation = "";  // commands of the shell, done there before it
  QString environment = "XDG_CONFIG_HOME=$PWD/config";
  int signal = SIGTERM;

  QByteArray output = "";
  int exitCode = -1;

  void Do() {
    QProcess program;
    program.setWorkingDirectory(home.path());
    program.setProcessChannelMode(QProcess::MergedChannels);
    // The language is one that the machine may not have.
    program.start("sh", {"-c", preparation + "\nexec env --default-signal=INT,HUP,TERM -u XDG_CONFIG_HOME HOME=$PWD " +
                                   "LC_ALL=de_DE.UTF-8 " + environment + " \"$CELESTRIX_PROGRAM\""});
    QVERIFY(program.waitForStarted());
    const qint64 id = program.processId();
    QTRY_VERIFY2_WITH_TIMEOUT(Catches(id, signal) && Catches(id, SIGTERM), "waited for its start", 20000);
    kill(static_cast<pid_t>(id), signal);
    QVERIFY2(program.waitForFinished(), "waited for its end");
    exitCode = program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
    output = program.readAll();
  }
  QByteArray Left(const QString& place) const { return ReadFile(home.filePath(place + "/CelestrixSatellite.prefs")); }

 private:
  /// Whether the process catches the signal, as the system shows it.
  static bool Catches(qint64 process, int signal) {
    const QByteArray status = ReadFile(QStringLiteral("/proc/%1/status").arg(process));
    const qulonglong bits = status.mid(status.indexOf("SigCgt:\t") + 8, 16).toULongLong(nullptr, 16);
    return (bits >> (signal - 1) & 1) != 0;
  }
};

}  // namespace

class TestProgram : public QObject {
  Q_OBJECT

 private slots:
  void aSignalEndsItQuietlyAndKeepsTheChoice_data() {
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
    QTest::newRow("SIGTERM") << SIGTERM;
  }
  void aSignalEndsItQuietlyAndKeepsTheChoice() {
    QFETCH(int, signal);
    Run run = {.signal = signal};
    run.Do();
    QCOMPARE(run.output, "");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.Left("config"), "0\n");
  }

  void replacesTheRememberedChoice_data() {
    QTest::addColumn<QString>("preparation");
    QTest::addColumn<QByteArray>("left");
    QTest::newRow("Palm") << "echo 0 >$P" << QByteArray("0\n");
    QTest::newRow("Pocket PC, and more lines") << "printf '1\\r\\n0\\n' >$P" << QByteArray("1\n");
    QTest::newRow("neither") << "echo 2 >$P" << QByteArray("1\n");
    QTest::newRow("empty file") << ": >$P" << QByteArray("0\n");
    QTest::newRow("link to Pocket PC") << "ln -s ../linked $P" << QByteArray("1\n");
    QTest::newRow("broken link") << "ln -s ../no/such $P" << QByteArray("0\n");
    QTest::newRow("folder of that name") << "mkdir $P" << QByteArray("cannot be read");
    QTest::newRow("file in the folder's place") << "rmdir config; touch config" << QByteArray("cannot be read");
  }
  void replacesTheRememberedChoice() {
    QFETCH(QString, preparation);
    QFETCH(QByteArray, left);
    Run run = {.preparation = "printf 1 >linked; mkdir config; P=config/CelestrixSatellite.prefs; " + preparation};
    run.Do();
    QCOMPARE(run.output, "");
    QCOMPARE(run.Left("config"), left);
    QCOMPARE(ReadFile(run.home.filePath("linked")), "1");
  }

  void keepsItInTheUsersFolder_data() {
    QTest::addColumn<QString>("environment");
    QTest::newRow("XDG_CONFIG_HOME, empty") << "XDG_CONFIG_HOME=";
    QTest::newRow("XDG_CONFIG_HOME, relative") << "XDG_CONFIG_HOME=config";
    QTest::newRow("APPDATA, which is for Windows") << "APPDATA=$PWD/data";
  }
  void keepsItInTheUsersFolder() {
    QFETCH(QString, environment);
    Run run = {.environment = environment};
    run.Do();
    QCOMPARE(run.Left(".config"), "0\n");
  }
};

QTEST_GUILESS_MAIN(TestProgram)
#include "test_program.moc"
