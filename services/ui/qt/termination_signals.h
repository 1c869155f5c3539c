// The system's requests to end the program.
#pragma once

#include <functional>
#include <memory>

namespace celestrix {

/// While it exists, a request of the system to end the program becomes an event of the event loop that calls
/// the function. On Unix these are the signals SIGTERM, SIGINT and SIGHUP (termination_signals_unix.cpp);
/// elsewhere there are none: the system closes the window (termination_signals_none.cpp).
class TerminationSignals {
 public:
  explicit TerminationSignals(const std::function<void()>& whenRaised);
  ~TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

 private:
  struct Watch;
  std::unique_ptr<Watch> watch_;
};

}  // namespace celestrix
