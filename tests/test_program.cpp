// The program as a process: how it starts and ends, what it leaves, and that it is quiet.
#include <signal.h>

#include "tests/files.h"

namespace {

struct Run {
  QString starter;
  int signal;
  QString before;    // commands that prepare the preferences file $P in config/
  QByteArray after;  // what is in it and in what it links to, and its path where it is a link
};

}  // namespace

class TestProgram : public QObject {
  Q_OBJECT

 private slots:
  void keepsTheChoiceWhenItIsEnded_data() {
    QTest::addColumn<Run>("run");
    // clang-format off
    QTest::newRow("Pocket PC") << Run{"env", SIGINT, "mkdir config; printf '1\\r\\nmore' >$P", "1\n"};
    QTest::newRow("neither") << Run{"env", SIGHUP, "mkdir config; echo 2 >$P", "1\n"};
    QTest::newRow("read-only") << Run{"env", SIGTERM, "mkdir config; echo 1 >$P; chmod 400 $P", "1\n"};
    QTest::newRow("link") << Run{"env", SIGTERM, "mkdir config; echo 1st >linked; ln -s ../linked $P", "1\n1st\n"};
    QTest::newRow("broken link") << Run{"env", SIGTERM, "mkdir config; ln -s ../linked $P", "0\n"};
    QTest::newRow("folder of that name") << Run{"env", SIGTERM, "mkdir -p $P", ""};
    QTest::newRow("file in the folder's place") << Run{"env", SIGTERM, "touch config", ""};
    QTest::newRow("nohup, no folder") << Run{"nohup", SIGTERM, "", "0\n"};
    // clang-format on
  }
  void keepsTheChoiceWhenItIsEnded() {
    QFETCH(const Run, run);
    const QTemporaryDir home;
    InShell(home, run.before);
    QProcess program;
    program.setEnvironment(QProcess::systemEnvironment()
                           << "XDG_CONFIG_HOME=" + home.filePath("config") << "LC_ALL=de_DE.UTF-8");
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(run.starter, {qEnvironmentVariable("CELESTRIX_PROGRAM")});
    QVERIFY2(program.waitForStarted(), "waited for the program to start");
    const qint64 id = program.processId();
    QTRY_VERIFY2_WITH_TIMEOUT(Has(id, "SigCgt", SIGTERM), "waited for the program to catch signals", 20000);
    QTRY_VERIFY2_WITH_TIMEOUT(Has(id, "SigIgn", SIGHUP) == (run.starter == "nohup"), "SIGHUP stays as it was", 2000);
    kill(static_cast<pid_t>(id), run.signal);
    QVERIFY2(program.waitForFinished(), "waited for the program to end");
    QCOMPARE(program.readAll(), QByteArray());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(InShell(home, "cat $P linked; find $P -type l"), run.after);
  }

 private:
  static QByteArray InShell(const QTemporaryDir& folder, const QString& commands) {
    QProcess shell;
    shell.setWorkingDirectory(folder.path());
    shell.start("sh", {"-c", "P=config/CelestrixSatellite.prefs; " + commands});
    shell.waitForFinished();
    return shell.readAllStandardOutput();
  }

  /// Whether the signal is in that set of the process, as the system shows it.
  static bool Has(qint64 process, const QByteArray& set, int signal) {
    const QByteArray status = QByteArray::fromStdString(ReadFile(QStringLiteral("/proc/%1/status").arg(process)));
    const qulonglong bits = status.mid(status.indexOf(set) + set.size() + 2, 16).toULongLong(nullptr, 16);
    return (bits >> (signal - 1) & 1) != 0;
  }
};

QTEST_GUILESS_MAIN(TestProgram)
#include "test_program.moc"
