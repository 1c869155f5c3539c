#include "services/ui/menu.h"

namespace celestrix {

Ref<MenuItem> MenuItem::Descendant(const String& name) const {
  for (const Ref<MenuItem>& item : items_) {
    if (item->Name == name) return item;
    if (Ref<MenuItem> below = item->Descendant(name)) return below;
  }
  return Ref<MenuItem>::Nil("There is no menu item “" + std::string(name.Bytes()) + "”.");
}

}  // namespace celestrix
