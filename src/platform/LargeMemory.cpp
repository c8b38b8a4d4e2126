// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LargeMemory.h"

#include <sys/mman.h>

#include <cstring>
#include <new>

namespace marquell::platform {
namespace {

/// From here on GrowingMemory has pages of its own.
constexpr std::size_t mappedSize = 1024 * 1024;

char* mapMemory(std::size_t size) {
    constexpr int protection = PROT_READ | PROT_WRITE;
    void* memory = ::mmap(nullptr, size, protection, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return memory == MAP_FAILED ? nullptr : static_cast<char*>(memory);
}

char* remapMemory(char* old, std::size_t oldSize, std::size_t size) {
    void* memory = ::mremap(old, oldSize, size, MREMAP_MAYMOVE);
    return memory == MAP_FAILED ? nullptr : static_cast<char*>(memory);
}

}  // namespace

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

GrowingMemory::~GrowingMemory() {
    if (isMapped()) {
        ::munmap(data_, size_);
    } else {
        std::free(data_);
    }
}

void GrowingMemory::growTo(std::size_t size) {
    char* grown = nullptr;
    if (size < mappedSize) {
        grown = static_cast<char*>(std::realloc(data_, size));
    } else if (isMapped()) {
        grown = remapMemory(data_, size_, size);
    } else {
        grown = mapMemory(size);
    }
    if (grown == nullptr) reportNoMemory();
    if (size >= mappedSize && !isMapped() && data_ != nullptr) {
        std::memcpy(grown, data_, size_);
        std::free(data_);
    }
    data_ = grown;
    size_ = size;
}

bool GrowingMemory::isMapped() const { return size_ >= mappedSize; }

}  // namespace marquell::platform
