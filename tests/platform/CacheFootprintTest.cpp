// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include "platform/CacheFootprint.h"
#include "platform/FileDescriptor.h"
#include "platform/Surroundings.h"

namespace marquell::platform {
namespace {

constexpr std::size_t fileSize = std::size_t{80} * 1024 * 1024;

/// The file's pages in the cache.
std::ptrdiff_t cachedPages(const FileDescriptor& file) {
    std::vector<unsigned char> pages(fileSize / static_cast<std::size_t>(::getpagesize()));
    void* const mapping = ::mmap(nullptr, fileSize, PROT_READ, MAP_SHARED, file.get(), 0);
    EXPECT_EQ(::mincore(mapping, fileSize, pages.data()), 0);
    ::munmap(mapping, fileSize);
    return std::count_if(pages.begin(), pages.end(), [](auto page) { return (page & 1U) != 0; });
}

void readBytes(const FileDescriptor& file, std::size_t begin, std::size_t end) {
    std::vector<char> buffer(end - begin);
    ASSERT_EQ(::pread(file.get(), buffer.data(), buffer.size(), static_cast<off_t>(begin)),
              static_cast<ssize_t>(buffer.size()));
}

TEST(CacheFootprint, LeavesTheCacheAsTheUserHadIt) {
    const tests::TemporaryFolder folder;
    tests::writeFile(folder / "large", "");
    std::filesystem::resize_file(folder / "large", fileSize);
    const FileDescriptor file(::open((folder / "large").c_str(), O_RDWR));
    readBytes(file, 0, 4096);  // as type detection does
    const std::ptrdiff_t before = cachedPages(file);
    if (before == 0) GTEST_SKIP() << "a file system without a cache of its own";
    {
        const CacheFootprint footprint(file.get(), fileSize);
        readBytes(file, 0, fileSize);
        EXPECT_GT(cachedPages(file), before);
    }
    EXPECT_LE(cachedPages(file), before);
    readBytes(file, fileSize / 4, fileSize / 2);  // in use by another program
    const std::ptrdiff_t inUse = cachedPages(file);
    {
        const CacheFootprint footprint(file.get(), fileSize);
        readBytes(file, 0, fileSize);
    }
    EXPECT_GE(cachedPages(file), inUse);
}

}  // namespace
}  // namespace marquell::platform
