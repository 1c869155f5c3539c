#include "services/base/string_array.h"

#include <algorithm>

namespace celestrix {

void StringArray::Remove(std::int32_t index) {
  const auto at = [this](std::size_t slot) { return slots_.begin() + static_cast<std::ptrdiff_t>(slot); };
  const std::size_t slot = Slot(index);
  if (gapSize_ == 0) gap_ = slot;
  if (slot < gap_)
    std::move_backward(at(slot + 1), at(gap_), at(gap_ + gapSize_));
  else
    std::move(at(gap_ + gapSize_), at(slot), at(gap_));
  // The gap now begins at the removed element, or ends right before it: either way they are neighbours.
  gap_ = static_cast<std::size_t>(index);
  ++gapSize_;
  slots_[slot] = String();
}

}  // namespace celestrix
