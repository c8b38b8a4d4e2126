// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace marquell::platform {

inline constexpr std::size_t hugePageSize = 2 * 1024 * 1024;

/// What operator new does when there is no memory: the program's handler if it has one, else
/// std::bad_alloc.
[[noreturn]] void reportNoMemory();

struct FreeMemory {
    void operator()(std::byte* memory) const { std::free(memory); }
};
using LargeMemory = std::unique_ptr<std::byte[], FreeMemory>;

/// Memory for data that is visited in no order, aligned for any type. From hugePageSize on it asks
/// the kernel for huge pages: with small ones, finding the page of each of a million scattered
/// items costs more than reading it.
LargeMemory largeMemory(std::size_t size);

/// Memory for one run of data that grows. Large ones grow by moving pages instead of copying bytes
/// and leave no holes behind, which std::realloc does up to 32 MB.
class GrowingMemory {
public:
    GrowingMemory() = default;
    GrowingMemory(const GrowingMemory&) = delete;
    GrowingMemory& operator=(const GrowingMemory&) = delete;
    ~GrowingMemory();

    char* data() const { return data_; }
    std::size_t size() const { return size_; }

    /// Keeps what is there. The new size must be greater.
    void growTo(std::size_t size);

private:
    bool isMapped() const;

    char* data_ = nullptr;
    std::size_t size_ = 0;
};

}  // namespace marquell::platform
