#include "services/ui/window.h"

namespace celestrix {

void Window::AddControl(const String& name, const Ref<RectControl>& control) {
  control->name_ = name;
  control->window_ = weak_from_this();
  controls_.push_back(control);
}

Ref<RectControl> RuntimeWindowControlByName(const Ref<Window>& window, const String& name) {
  return RuntimeWindowControlByNameIndex(window, name, kNoIndex);
}

Ref<RectControl> RuntimeWindowControlByNameIndex(const Ref<Window>& window, const String& name, std::int32_t index) {
  for (const Ref<RectControl>& control : window->controls_)
    if (control->Name() == name && control->Index() == index) return control;
  const std::string member = index == kNoIndex ? "" : " number " + std::to_string(index);
  return Ref<RectControl>::Nil("The window has no control “" + std::string(name.Bytes()) + "”" + member + ".");
}

}  // namespace celestrix
