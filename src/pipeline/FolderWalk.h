// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "pipeline/KeySort.h"
#include "pipeline/Node.h"
#include "platform/FileSystem.h"

namespace marquell::pipeline {

/// One walk through all that lies below a source folder. Folders are the units of work, shared by
/// up to platform::workerCount() threads once there are enough of them; nothing recurses, so depth
/// costs no stack, and each thread has one folder open.
class FolderWalk {
public:
    struct Rules {
        bool includeFiles;
        bool includeFolders;
    };

    /// `counter` grows as nodes are made. All references must outlive the walk.
    FolderWalk(std::string source, Rules rules, std::atomic<std::size_t>& counter,
               const StopCheck& stopped);

    /// Walks and returns what it found, in arbitrary order. Folders that can't be read are reported
    /// as read failures. When stopped, some may be missing.
    std::vector<std::shared_ptr<Node>> run();

private:
    class FolderVisit;

    void work();
    bool takeFolder(std::string& folder);
    void finishFolder(std::vector<std::string> subfolders);
    void startHelpersIfWorthwhile();

    const std::string source_;
    const Rules rules_;
    std::atomic<std::size_t>& counter_;
    const StopCheck& stopped_;

    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::string> pending_;          // guarded by mutex_: folders to be read
    std::size_t busy_ = 0;                      // guarded by mutex_: folders being read
    std::vector<std::shared_ptr<Node>> found_;  // guarded by mutex_ while threads run
    std::vector<std::thread> helpers_;          // guarded by mutex_ while threads run
};

}  // namespace marquell::pipeline
