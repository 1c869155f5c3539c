// A signal handler may do next to nothing, so it writes a byte into a pipe, and the event loop reads it.
#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include "services/ui/qt/termination_signals.h"

namespace celestrix {

namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

std::array<int, 2> ends = {-1, -1};  // of the pipe: to read from, to write to

void WriteToPipe(int /*signal*/) {
  const int interrupted = errno;
  // A full pipe holds enough of these, so the outcome does not matter.
  [[maybe_unused]] const auto written = write(ends[1], "", 1);
  errno = interrupted;
}

void Handle(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (int signal : kSignals) {
    struct sigaction inherited {};
    sigaction(signal, nullptr, &inherited);
    // Who started the program with a signal ignored (nohup) meant it.
    if (inherited.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
  }
}

}  // namespace

struct TerminationSignals::Watch {
  explicit Watch(const std::function<void()>& whenRaised) : notifier(ends[0], QSocketNotifier::Read) {
    QObject::connect(&notifier, &QSocketNotifier::activated, [whenRaised] {
      std::array<char, 64> bytes{};
      while (read(ends[0], bytes.data(), bytes.size()) > 0) {
      }
      whenRaised();
    });
  }
  QSocketNotifier notifier;
};

TerminationSignals::TerminationSignals(const std::function<void()>& whenRaised) {
  if (pipe(ends.data()) != 0) return;
  for (int end : ends) {
    fcntl(end, F_SETFD, FD_CLOEXEC);
    fcntl(end, F_SETFL, O_NONBLOCK);
  }
  watch_ = std::make_unique<Watch>(whenRaised);
  Handle(WriteToPipe);
}

TerminationSignals::~TerminationSignals() {
  if (!watch_) return;
  Handle(SIG_DFL);
  watch_.reset();
  for (int end : ends) close(end);
}

}  // namespace celestrix
