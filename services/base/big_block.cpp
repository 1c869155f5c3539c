#include "services/base/big_block.h"

#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace celestrix {

void* AllocateBlock(std::size_t size) {
  if (size < kLargePageSize) return ::operator new(size);
  void* block = ::operator new(size, std::align_val_t(kLargePageSize));
#ifdef __linux__
  madvise(block, size, MADV_HUGEPAGE);
#endif
  return block;
}

void FreeBlock(void* block, std::size_t size) {
  if (size < kLargePageSize)
    ::operator delete(block);
  else
    ::operator delete(block, std::align_val_t(kLargePageSize));
}

}  // namespace celestrix
