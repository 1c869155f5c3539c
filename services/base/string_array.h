// StringArray: the one-dimensional array of strings, indexed from 0 to its upper bound.
//
// Removing an element does not move all elements after it. The array keeps one gap where elements
// were removed last:
//
//   slots:  | before the gap | gap | after the gap |
//
// A removal next to the gap widens it; one further away first moves the elements between it and the
// gap. Walking from the upper bound down to 0 and removing on the way therefore moves every element
// at most once, however many are removed.
#pragma once

#include <vector>

#include "services/base/big_block.h"
#include "services/base/string.h"

namespace celestrix {

class StringArray {
 public:
  /// The index of the last element; -1 for an empty array.
  std::int32_t UpperBound() const { return static_cast<std::int32_t>(slots_.size() - gapSize_) - 1; }

  /// The element at the index. This and the next two raise OutOfBoundsException if there is none.
  const String& Get(std::int32_t index) const { return slots_[Slot(index)]; }
  /// Replaces the element at the index.
  void Set(std::int32_t index, String value) { slots_[Slot(index)] = std::move(value); }
  /// Deletes the element; those after it move down by one.
  void Remove(std::int32_t index);

  /// Makes room for that many elements.
  void Reserve(std::size_t elements) { slots_.reserve(elements); }
  /// Adds an element after the last one.
  void Append(String value) { slots_.push_back(std::move(value)); }

 private:
  std::size_t Slot(std::int32_t index) const {
    if (index < 0 || index > UpperBound()) RaiseOutOfBoundsException(index, UpperBound());
    const auto position = static_cast<std::size_t>(index);
    return position < gap_ ? position : position + gapSize_;
  }

  std::vector<String, BlockAllocator<String>> slots_;
  std::size_t gap_ = 0;      // the slot where the gap begins
  std::size_t gapSize_ = 0;  // in slots, which hold empty strings
};

}  // namespace celestrix
