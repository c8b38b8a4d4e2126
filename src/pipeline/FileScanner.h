// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "pipeline/DataModelSnapshot.h"
#include "pipeline/FlatFileList.h"
#include "platform/Disposal.h"

namespace marquell::pipeline {

/// Turns sources into one sorted list of nodes, looking at names and kinds only. Every entry below
/// a source folder counts that isn't hidden by its own name or by a package around it; links are
/// listed and never entered. Serves one scan, on one thread.
class FileScanner {
public:
    /// `stopped` makes a walk or sort end early; the list is then worthless.
    explicit FileScanner(StopCheck stopped) : stopped_(std::move(stopped)) {}

    /// Adds what one source stands for.
    void addSource(const std::string& sourcePath, const DataModelSnapshot& snapshot);

    /// Appends all that counts below one source folder.
    void deepScan(const std::string& sourcePath, bool includeFiles, bool includeFolders);
    void createOneFile(const std::string& path);
    void createOneFolder(const std::string& path);

    /// Sorts the whole list. Ties go in the order of the sources and within a source by path, level
    /// by level, in byte order: the same on every file system and with any number of threads.
    void sort();

    int firstSortMode = 0;
    int secondSortMode = 0;
    std::shared_ptr<FlatFileList> flatFileList = platform::makeDisposedOnWorker<FlatFileList>();

    /// Any thread.
    std::size_t currentTotalItemsScanned() const {
        return itemsScanned_.load(std::memory_order_relaxed);
    }
    bool isSorting() const { return isSorting_.load(std::memory_order_relaxed); }

private:
    bool enumeratesBefore(std::uint32_t a, std::uint32_t b) const;
    std::size_t sourceOf(std::uint32_t position) const;
    template <typename Kind>
    void createOne(const std::string& path);

    StopCheck stopped_;
    NodeArena arena_;                        ///< for sources that are items themselves
    std::vector<std::size_t> sourceStarts_;  ///< position of each source's first item
    std::atomic<std::size_t> itemsScanned_ = 0;
    std::atomic<bool> isSorting_ = false;
};

}  // namespace marquell::pipeline
