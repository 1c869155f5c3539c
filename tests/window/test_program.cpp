// The program as a process: how it starts and ends, what it leaves, and that it is quiet.
#include <signal.h>

#include "tests/files.h"

class TestProgram : public QObject {
  Q_OBJECT

 private slots:
  void keepsTheChoiceWhenItIsEnded() {
    // clang-format off
    const std::tuple<QString, int, QString, QString> rows[] = {
        // name, signal, commands that prepare the preferences file $P in config/, what is in it afterwards
        {"Pocket PC", SIGINT, "mkdir config; printf '1\\r\\nmore' >$P", "1\n"},
        {"neither", SIGHUP, "mkdir config; echo 2 >$P", "1\n"},
        {"empty", SIGTERM, "mkdir config; touch $P", "0\n"},
        {"words", SIGTERM, "mkdir config; printf 'words\\n1' >$P", "0\n"},
        {"read-only", SIGTERM, "mkdir config; echo 1 >$P; chmod 400 $P", "1\n"},
        {"link", SIGTERM, "mkdir config; ln -s ../linked $P", "1\n"},
        {"broken link", SIGTERM, "mkdir config; ln -s ../no/such $P", "0\n"},
        {"folder of that name", SIGTERM, "mkdir -p $P", "cannot be read"},
        {"file in the folder's place", SIGTERM, "touch config", "cannot be read"},
        {"no folder", SIGTERM, "starter=nohup", "0\n"}};
    // clang-format on
    for (const auto& [name, signal, before, after] : rows) {
      const QTemporaryDir home;
      QProcess program;
      program.setWorkingDirectory(home.path());
      program.setProcessChannelMode(QProcess::MergedChannels);
      program.start("sh", {"-c",
                           "export XDG_CONFIG_HOME=$PWD/config LC_ALL=de_DE.UTF-8; echo 1st >linked\n"
                           "P=config/CelestrixSatellite.prefs; " +
                               before + "; exec env --default-signal=INT,HUP,TERM $starter \"$CELESTRIX_PROGRAM\""});
      QVERIFY2(program.waitForStarted(), qPrintable("waited for the shell: " + name));
      const qint64 id = program.processId();
      QTRY_VERIFY2_WITH_TIMEOUT(Has(id, "SigCgt", signal) && Has(id, "SigCgt", SIGTERM),
                                qPrintable("waited for its start: " + name), 20000);
      QCOMPARE(std::pair(name, Has(id, "SigIgn", SIGHUP)), std::pair(name, before == "starter=nohup"));
      kill(static_cast<pid_t>(id), signal);
      QVERIFY2(program.waitForFinished(), qPrintable("waited for the program to end: " + name));
      const int exit = program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
      const QString left = ReadFile(home.filePath("config/CelestrixSatellite.prefs"));
      const QString linked = ReadFile(home.filePath("linked"));
      QCOMPARE(QStringList({name, QString::number(exit), program.readAll(), left, linked}),
               QStringList({name, "0", "", after, "1st\n"}));
    }
  }

 private:
  /// Whether the signal is in that set of the process, as the system shows it.
  static bool Has(qint64 process, const QByteArray& set, int signal) {
    const QByteArray status = ReadFile(QStringLiteral("/proc/%1/status").arg(process));
    const qulonglong bits = status.mid(status.indexOf(set) + set.size() + 2, 16).toULongLong(nullptr, 16);
    return (bits >> (signal - 1) & 1) != 0;
  }
};

QTEST_GUILESS_MAIN(TestProgram)
#include "test_program.moc"
