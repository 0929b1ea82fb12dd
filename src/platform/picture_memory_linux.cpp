#include "platform/picture_memory.h"

#include <malloc.h>
#include <sys/mman.h>

#include <cstdint>
#include <cstdlib>
#include <limits>

namespace fennick {

namespace {

constexpr std::uintptr_t hugePage = 2U * 1024 * 1024;
constexpr std::size_t reserved = 48 * hugePage; // a page of A4 with all that is made of it takes less

} // namespace

void reusePictureMemory() {
    ::mallopt(M_MMAP_MAX, 0); // large blocks come from the heap, too
    ::mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    void *const block = std::malloc(reserved);
    if (block == nullptr) {
        return;
    }
    const std::uintptr_t start =
        (reinterpret_cast<std::uintptr_t>(block) + hugePage - 1) / hugePage * hugePage;
    ::madvise(reinterpret_cast<void *>(start), reserved - hugePage, MADV_HUGEPAGE);
    std::free(block);
}

} // namespace fennick
