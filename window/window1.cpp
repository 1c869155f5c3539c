#include "window/window1.h"

#include "core/save_command.h"
#include "services/ui/application.h"

namespace celestrix {

Ref<Window1> Window1::Shared() {
  const String className = "Window1.Window1"_s;
  if (const Ref<Window> open = ImplicitWindow(className)) return open.As<Window1>();
  Ref<Window1> window = New<Window1>();
  AddImplicitWindow(className, window);
  window->Open();
  return window;
}

void Window1::AddMenuHandlers(const Ref<Window>& window) { window.As<Window1>().RaiseIfNull(); }

void Window1::SaveBtn_Action() { Save(Self()); }

Ref<Window1> Window1::Self() { return Ref<Window>(shared_from_this()).As<Window1>(); }

}  // namespace celestrix
