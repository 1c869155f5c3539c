#include "services/ui/menu.h"

namespace celestrix {

namespace {

Ref<MenuItem> Find(const std::vector<Ref<MenuItem>>& items, const String& name, bool below) {
  for (const Ref<MenuItem>& item : items) {
    if (item->Name == name) return item;
    if (!below) continue;
    if (Ref<MenuItem> found = Find(item->Items(), name, below)) return found;
  }
  return Ref<MenuItem>::Nil("There is no menu item “" + std::string(name.Bytes()) + "”.");
}

}  // namespace

Ref<MenuItem> MenuItem::Child(const String& name) const { return Find(items_, name, false); }

Ref<MenuItem> MenuBar::ItemNamed(const String& name) const { return Find(Items(), name, true); }

}  // namespace celestrix
