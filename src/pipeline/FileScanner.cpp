// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/FileScanner.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "pipeline/FolderWalk.h"
#include "platform/FileSystem.h"
#include "platform/Packages.h"
#include "platform/Path.h"
#include "platform/ReadFailures.h"

namespace marquell::pipeline {
namespace {

/// Level by level means that the slash comes before all other bytes.
bool pathComesBefore(std::string_view a, std::string_view b) {
    const auto [inA, inB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    if (inA == a.end() || inB == b.end()) return inB != b.end();
    const auto rank = [](char c) { return c == '/' ? 0U : static_cast<unsigned char>(c); };
    return rank(*inA) < rank(*inB);
}

}  // namespace

void FileScanner::addSource(const std::string& sourcePath, const DataModelSnapshot& snapshot) {
    sourceStarts_.push_back(flatFileList->files.size());
    const bool isFolder = platform::kindOf(sourcePath) == platform::EntryKind::folder;
    if (!isFolder || platform::isPackageName(platform::lastPathComponent(sourcePath))) {
        int error = 0;
        if (!platform::entryExists(sourcePath, error)) {
            platform::reportReadFailure(sourcePath, error);
        }
        createOneFile(sourcePath);
    } else if (snapshot.processSubFolders) {
        deepScan(sourcePath, snapshot.processFiles, snapshot.processFolders);
    } else {
        createOneFolder(sourcePath);
    }
}

void FileScanner::deepScan(const std::string& sourcePath, bool includeFiles, bool includeFolders) {
    FolderWalk walk(sourcePath, {includeFiles, includeFolders}, itemsScanned_, stopped_);
    std::vector<std::shared_ptr<Node>> found = walk.run();
    std::vector<std::shared_ptr<Node>>& files = flatFileList->files;
    if (files.empty()) {
        files = std::move(found);
    } else {
        files.insert(files.end(), std::make_move_iterator(found.begin()),
                     std::make_move_iterator(found.end()));
    }
}

template <typename Kind>
void FileScanner::createOne(const std::string& path) {
    flatFileList->files.push_back(arena_.make<Kind>(platform::lastPathComponent(path), path, {}));
    itemsScanned_.fetch_add(1, std::memory_order_relaxed);
}

void FileScanner::createOneFile(const std::string& path) { createOne<FileNode>(path); }

void FileScanner::createOneFolder(const std::string& path) { createOne<FolderNode>(path); }

std::size_t FileScanner::sourceOf(std::uint32_t position) const {
    const auto next = std::upper_bound(sourceStarts_.begin(), sourceStarts_.end(), position);
    return static_cast<std::size_t>(next - sourceStarts_.begin());
}

bool FileScanner::enumeratesBefore(std::uint32_t a, std::uint32_t b) const {
    const std::size_t sourceOfA = sourceOf(a);
    const std::size_t sourceOfB = sourceOf(b);
    if (sourceOfA != sourceOfB) return sourceOfA < sourceOfB;
    const auto& files = flatFileList->files;
    return pathComesBefore(files[a]->absolutePath(), files[b]->absolutePath());
}

void FileScanner::sort() {
    isSorting_.store(true, std::memory_order_relaxed);
    flatFileList->sort(firstSortMode, secondSortMode, stopped_,
                       [this](std::uint32_t a, std::uint32_t b) { return enumeratesBefore(a, b); });
}

}  // namespace marquell::pipeline
