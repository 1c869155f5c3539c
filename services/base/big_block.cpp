// Large pages are requested on Linux only; elsewhere this is plain standard C++.
#include "services/base/big_block.h"

#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace celestrix {

namespace {

/// Where a block may begin: a large page must begin at a multiple of its size.
std::align_val_t Alignment(std::size_t size) {
  return std::align_val_t(size < kLargePageSize ? alignof(std::max_align_t) : kLargePageSize);
}

}  // namespace

void* AllocateBlock(std::size_t size) {
  void* block = ::operator new(size, Alignment(size));
#ifdef __linux__
  if (size >= kLargePageSize) madvise(block, size, MADV_HUGEPAGE);
#endif
  return block;
}

void FreeBlock(void* block, std::size_t size) { ::operator delete(block, Alignment(size)); }

}  // namespace celestrix
