#include "services/ui/qt/termination_signals.h"

#include <QCoreApplication>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>

namespace celestrix {

namespace {

// A signal handler may do next to nothing, so it writes a byte into a pipe, and the event loop reads it.
std::array<int, 2> ends = {-1, -1};  // to read from, to write to

void WriteToPipe(int /*signal*/) {
  const int interrupted = errno;
  // If the pipe is full, there is enough in it to read, so a failure can be ignored.
  [[maybe_unused]] const auto written = write(ends[1], "", 1);
  errno = interrupted;
}

}  // namespace

void CatchTerminationSignals(const std::function<void()>& whenRaised) {
  if (pipe(ends.data()) != 0) return;
  for (const int end : ends) fcntl(end, F_SETFL, O_NONBLOCK);
  auto* notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, QCoreApplication::instance());
  QObject::connect(notifier, &QSocketNotifier::activated, [whenRaised] {
    std::array<char, 64> bytes{};
    while (read(ends[0], bytes.data(), bytes.size()) > 0) {
    }
    whenRaised();
  });
  signal(SIGXFSZ, SIG_IGN);  // exceeding the system's file size limit only makes the write fail
  for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
    struct sigaction action = {};
    sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN) continue;  // ignored since the start, on purpose (nohup)
    action.sa_handler = WriteToPipe;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
  }
}

}  // namespace celestrix

#else

void celestrix::CatchTerminationSignals(const std::function<void()>& /*whenRaised*/) {}

#endif
