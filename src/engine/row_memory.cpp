#include "engine/row_memory.h"

#include <cstdlib>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace brennik {

namespace {

// The size of a large page; the memory starts on one, so that whole pages lie within it.
constexpr std::size_t LargePage = std::size_t{1} << 21;

}  // namespace

void FreeRowMemory::operator()(uint64_t* words) const {
    std::free(words);
}

RowMemory AllocateRowMemory(std::size_t words) {
    const std::size_t bytes = (words * sizeof(uint64_t) + LargePage - 1) / LargePage * LargePage;
    void* memory = std::aligned_alloc(LargePage, bytes);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
#if defined(__linux__)
    // Only advice: where large pages are not to be had, the memory works as it is.
    madvise(memory, bytes, MADV_HUGEPAGE);
#endif
    return RowMemory(static_cast<uint64_t*>(memory));
}

}  // namespace brennik
