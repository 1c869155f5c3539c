#include "services/ui/controls.h"

#include "services/ui/event_queue.h"

namespace celestrix {

void Control::Raise(const char* event, const Event& arguments) {
  const auto handler = handlers_.find(event);
  if (handler == handlers_.end()) return;
  RaiseEvent([me = Ref<Control>(shared_from_this()), handler = handler->second, arguments] {
    handler(RuntimeSwapSelfAndMe(me), arguments);
  });
}

void _InstallInstanceEventHandler(const Ref<Control>& control, const char* event, EventHandler handler) {
  control->handlers_.insert_or_assign(event, std::move(handler));
}

Ref<Window> RuntimeSwapSelfAndMe(const Ref<Control>& me) { return me->window_.lock(); }

}  // namespace celestrix
