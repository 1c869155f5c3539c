#include "services/ui/menu.h"

namespace celestrix {

Ref<MenuItem> MenuItem::Child(const String& name) const {
  for (const Ref<MenuItem>& item : items_)
    if (item->Name == name) return item;
  return Ref<MenuItem>::Nil("There is no menu item “" + std::string(name.Bytes()) + "”.");
}

Ref<MenuItem> MenuItem::Descendant(const String& name) const {
  for (const Ref<MenuItem>& item : items_)
    if (Ref<MenuItem> below = item->Descendant(name)) return below;
  return Child(name);
}

}  // namespace celestrix
