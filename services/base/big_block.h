// Memory for what grows with the text. Allocating it is cheap; what costs is the first access to each page, when
// the system interrupts the program to fill the page with zeros. Big blocks therefore ask for large pages, if the
// system has them; without them, a whole conversion takes 1.8 times as long.
#pragma once

#include <cstddef>

namespace celestrix {

inline constexpr std::size_t kLargePageSize = 2 * 1024 * 1024;

/// Raises std::bad_alloc if there is not enough memory.
void* AllocateBlock(std::size_t size);
/// `size` must be the one given to AllocateBlock.
void FreeBlock(void* block, std::size_t size);

/// The same for the containers of the standard library.
template <class T>
struct BlockAllocator {
  using value_type = T;
  BlockAllocator() = default;
  template <class U>
  BlockAllocator(const BlockAllocator<U>&) {}
  T* allocate(std::size_t n) { return static_cast<T*>(AllocateBlock(n * sizeof(T))); }
  void deallocate(T* block, std::size_t n) { FreeBlock(block, n * sizeof(T)); }
  bool operator==(const BlockAllocator&) const { return true; }
};

}  // namespace celestrix
