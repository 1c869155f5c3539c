// Memory for what grows with the text. Its cost is not the asking for it but the first touch of each page, at
// which the system stops the program to fill the page with zeros. Big blocks therefore ask for pages of the
// largest kind, where the system has one; without them, a whole conversion takes 1.5 times as long.
#pragma once

#include <cstddef>

namespace celestrix {

inline constexpr std::size_t kLargePageSize = 2 * 1024 * 1024;

/// Raises std::bad_alloc where there is no more memory.
void* AllocateBlock(std::size_t size);
/// `size` is that with which it was allocated.
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
