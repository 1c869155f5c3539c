#include "services/ui/qt/termination_signals.h"

namespace celestrix {

struct TerminationSignals::Watch {};

TerminationSignals::TerminationSignals(const std::function<void()>& /*whenRaised*/) {}
TerminationSignals::~TerminationSignals() = default;

}  // namespace celestrix
