// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LargeMemory.h"

#include <sys/mman.h>

#include <new>

namespace marquell::platform {

void reportNoMemory() {
    if (const std::new_handler handler = std::get_new_handler()) handler();
    throw std::bad_alloc();
}

LargeMemory largeMemory(std::size_t size) {
    const bool isHuge = size >= hugePageSize;
    void* memory = nullptr;
    const std::size_t alignment = isHuge ? hugePageSize : alignof(std::max_align_t);
    if (::posix_memalign(&memory, alignment, size) != 0) reportNoMemory();
    // Only a wish: without huge pages the memory serves as well.
    if (isHuge) static_cast<void>(::madvise(memory, size, MADV_HUGEPAGE));
    return LargeMemory(static_cast<std::byte*>(memory));
}

}  // namespace marquell::platform
