// The program as a process: how it starts and ends, what it leaves, and that it is quiet.
#include <signal.h>

#include "tests/files.h"

namespace {

/// A run of the program, in a home of its own, until a signal ends it.
struct Run {
  QTemporaryDir home;
  bool caughtHangup = false;
  QByteArray output;
  int exitCode = -1;  // of a crash, the negative number of the signal

  /// The preparation is commands of the shell, done in that home before the program starts.
  explicit Run(const QString& preparation = "", int signal = SIGTERM) {
    QProcess program;
    program.setWorkingDirectory(home.path());
    program.setProcessChannelMode(QProcess::MergedChannels);
    // The language is one that the machine may not have.
    const QStringList script = {
        "mkdir config; P=config/CelestrixSatellite.prefs; place=XDG_CONFIG_HOME=\"$PWD\"/config; hangup=,HUP",
        preparation,
        "exec env --default-signal=INT,TERM$hangup -u XDG_CONFIG_HOME HOME=\"$PWD\" LC_ALL=de_DE.UTF-8 "
        "\"$place\" \"$CELESTRIX_PROGRAM\""};
    program.start("sh", {"-c", script.join('\n')});
    QVERIFY(program.waitForStarted());
    const qint64 id = program.processId();
    // It catches this one last.
    QTRY_VERIFY2_WITH_TIMEOUT(Catches(id, SIGTERM), "waited for its start", 20000);
    caughtHangup = Catches(id, SIGHUP);
    for (int time = 0; time < 2; ++time) {  // the second one must not kill it
      kill(static_cast<pid_t>(id), signal);
      QThread::msleep(2);
    }
    QVERIFY2(program.waitForFinished(), "waited for its end");
    exitCode = program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -program.exitCode();
    output = program.readAll();
  }

  QByteArray RememberedChoice() const {
    const QString path = home.filePath("config/CelestrixSatellite.prefs");
    return QFile::exists(path) ? ReadFile(path) : "none";
  }

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
    const Run run("", signal);
    QCOMPARE(run.output, "");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.RememberedChoice(), "0\n");
  }

  void aHangupThatIsIgnoredAtItsStartStaysIgnored() { QVERIFY(!Run("trap '' HUP; hangup=").caughtHangup); }

  void warningsAreShownWhereAskedFor() { QVERIFY(Run("export QT_LOGGING_RULES='*=true'").output.contains("qt.")); }

  void replacesTheRememberedChoice_data() {
    AddRows(
        {{"Palm", "echo 0 >$P", "0\n"},
         {"Pocket PC, and more lines", "printf '1\\r\\n0\\n' >$P", "1\n"},
         {"a choice that does not exist", "echo 2 >$P", "1\n"},
         {"empty file", ": >$P", "0\n"},
         {"link to Pocket PC", "ln -s ../linked $P", "1\n"},
         {"broken link", "ln -s ../no/such $P", "0\n"},
         {"folder of that name", "mkdir $P", "cannot be read"},
         {"file in the folder's place", "rmdir config; touch config", "none"},
         {"XDG_CONFIG_HOME is empty", "printf 1 >$P; ln -s config .config; place=XDG_CONFIG_HOME=", "1\n"},
         {"XDG_CONFIG_HOME is relative", "printf 1 >$P; ln -s config .config; place=XDG_CONFIG_HOME=other", "1\n"},
         {"APPDATA, which is for Windows", "printf 1 >$P; ln -s config .config; place=APPDATA=\"$PWD\"/other", "1\n"}});
  }
  void replacesTheRememberedChoice() {
    QFETCH(const QByteArray, in);
    const Run run("printf 1 >linked; " + in);
    QCOMPARE(run.output, "");
    QCOMPARE(run.exitCode, 0);
    QTEST(run.RememberedChoice(), "out");
    QCOMPARE(ReadFile(run.home.filePath("linked")), "1");
  }
};

QTEST_GUILESS_MAIN(TestProgram)
#include "test_program.moc"
