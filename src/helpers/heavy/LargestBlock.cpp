// SPDX-License-Identifier: GPL-3.0-or-later
// Bounds what one block of memory of this program's C++ code may take. The PDF library unpacks
// whole streams into texts, a thousandfold if a file wants it: without this, seconds and the whole
// memory of the process go into one that is of no use.
#include <cstddef>
#include <cstdlib>
#include <new>

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

namespace {

constexpr std::size_t largestBlock = std::size_t{32} << 20;

}  // namespace

void* operator new(std::size_t size) {
    void* const block = size <= largestBlock ? std::malloc(size > 0 ? size : 1) : nullptr;
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }

#endif
