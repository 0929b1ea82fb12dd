#include "platform/allocator_tuning.h"

#include <malloc.h>
#include <sys/mman.h>

#include <cstddef>
#include <cstdlib>
#include <limits>
#include <memory>

namespace fennick {

namespace {

constexpr std::size_t hugePage = 2UL * 1024 * 1024;
constexpr std::size_t reserved = 48 * hugePage; // a page of A4 with all that is made of it takes less

} // namespace

void keepFreedMemory() {
    ::mallopt(M_MMAP_MAX, 0); // large blocks come from the heap, too
    ::mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    void *const block = std::malloc(reserved);
    if (block == nullptr) {
        return;
    }
    void *start = block;
    std::size_t space = reserved;
    if (std::align(hugePage, reserved - hugePage, start, space) != nullptr) {
        ::madvise(start, reserved - hugePage, MADV_HUGEPAGE);
    }
    std::free(block);
}

} // namespace fennick
