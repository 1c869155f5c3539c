// The program as a process: how it starts and ends, what it leaves, and that it is quiet.
#include <signal.h>
#include <unistd.h>

#include <QProcess>
#include <QTest>

#include "tests/files.h"

class TestProgram : public QObject {
  Q_OBJECT

 public:
  explicit TestProgram(QString program) : program_(std::move(program)) {}

 private slots:
  void endsInOrderWhenItIsAskedTo_data() {
    QTest::addColumn<int>("signal");
    QTest::addColumn<QByteArray>("before");  // the preferences file; "-" for none
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("no preferences yet") << SIGTERM << QByteArray("-") << QByteArray("0\n");
    QTest::newRow("the choice is kept") << SIGINT << QByteArray("1\r\nmore") << QByteArray("1\n");
    QTest::newRow("Palm too") << SIGHUP << QByteArray("0") << QByteArray("0\n");
    QTest::newRow("an alert at start") << SIGTERM << QByteArray("2\n") << QByteArray("1\n");
    QTest::newRow("decimal commas") << SIGTERM << QByteArray("1,9") << QByteArray("1\n");
  }
  void endsInOrderWhenItIsAskedTo() {
    QFETCH(int, signal);
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QTemporaryDir home;
    const QString preferences = home.filePath("a/new/folder/CelestrixSatellite.prefs");
    if (before != "-") {
      QVERIFY(QDir().mkpath(home.filePath("a/new/folder")));
      WriteFile(preferences, before.toStdString());
    }
    RunAndEnd(home.filePath("a/new/folder"), signal);
    QCOMPARE(ReadFile(preferences), after.toStdString());
  }

  void endsAlsoWherePreferencesCannotBeKept() {
    QTemporaryDir home;
    RunAndEnd(WriteFile(home.filePath("file"), "") + "/folder", SIGTERM);
  }

 private:
  void RunAndEnd(const QString& configuration, int signal) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", configuration);
    environment.insert("LC_ALL", "de_DE.UTF-8");
    environment.insert("ASAN_OPTIONS", "log_path=" + program_ + ".asan");  // for a look, should the status not be 0
    environment.remove("XDG_RUNTIME_DIR");
    environment.remove("DBUS_SESSION_BUS_ADDRESS");
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program_, {});
    QVERIFY(process.waitForStarted());
    // It answers signals in its own way from the moment when it catches them.
    const QByteArray caught = "/proc/" + QByteArray::number(process.processId()) + "/status";
    QTRY_VERIFY_WITH_TIMEOUT(Catches(caught, signal), 20000);
    kill(static_cast<pid_t>(process.processId()), signal);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAll(), QByteArray());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
  }

  static bool Catches(const QByteArray& statusFile, int signal) {
    for (const QByteArray& line : QByteArray::fromStdString(ReadFile(statusFile)).split('\n'))
      if (line.startsWith("SigCgt:")) return (line.mid(7).trimmed().toULongLong(nullptr, 16) >> (signal - 1) & 1) != 0;
    return false;
  }

  QString program_;
};

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  TestProgram test(arguments.value(1));
  QStringList rest = arguments.mid(2);
  rest.prepend(arguments.value(0));
  return QTest::qExec(&test, rest);
}
#include "test_program.moc"
