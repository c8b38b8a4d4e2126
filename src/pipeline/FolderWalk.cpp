// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/FolderWalk.h"

#include <iterator>
#include <utility>

#include "platform/Packages.h"
#include "platform/Path.h"
#include "platform/ReadFailures.h"
#include "platform/Workers.h"

namespace marquell::pipeline {
namespace {

/// Starting threads costs more than reading a few folders.
constexpr std::size_t foldersWorthHelpers = 16;

/// How many entries may pass before the counter shows them and a stop is noticed.
constexpr std::size_t entriesBetweenLooks = 256;

using platform::DirectoryEntryKind;

}  // namespace

/// Reads one folder: makes the nodes of its entries and notes the folders to be walked next.
class FolderWalk::FolderVisit {
public:
    FolderVisit(FolderWalk& walk, std::string_view folder, NodeArena& arena,
                std::vector<std::shared_ptr<Node>>& nodes)
        : walk_(walk),
          path_(platform::joinPath(folder, "")),
          prefixLength_(path_.size()),
          relativePath_(relativePathOf(folder)),
          arena_(arena),
          nodes_(nodes) {}

    /// Returns 0, or errno when the folder could not be read to its end.
    int read(const std::string& folder) {
        const bool followLink = folder == walk_.source_;
        const int error = platform::readDirectory(
            folder, followLink, [this](int open, const char* name, DirectoryEntryKind kind) {
                add(open, name, kind);
                return ++entries_ % entriesBetweenLooks != 0 || !look();
            });
        look();
        return error;
    }

    std::vector<std::string> takeSubfolders() { return std::move(subfolders_); }

private:
    std::string_view relativePathOf(std::string_view folder) const {
        folder.remove_prefix(walk_.source_.size());
        return folder.starts_with('/') ? folder.substr(1) : folder;
    }

    void add(int open, const char* name, DirectoryEntryKind kind) {
        path_.replace(prefixLength_, std::string::npos, name);
        const bool walkable = kind == DirectoryEntryKind::folder;
        if (name[0] == '.') {
            // Only the item itself is left out; what lies in a hidden folder has its own name.
            if (walkable) subfolders_.push_back(path_);
            return;
        }
        const bool isFolder = walkable || (kind == DirectoryEntryKind::link &&
                                           platform::linkLeadsToFolder(open, name));
        if (!isFolder || platform::isPackageName(name)) {
            if (walk_.rules_.includeFiles) addNode<FileNode>(name);
            return;
        }
        if (walk_.rules_.includeFolders) addNode<FolderNode>(name);
        if (walkable) subfolders_.push_back(path_);
    }

    template <typename Kind>
    void addNode(const char* name) {
        nodes_.push_back(arena_.make<Kind>(name, path_, relativePath_));
        ++uncounted_;
    }

    /// Shows progress; true when the walk is to stop.
    bool look() {
        walk_.counter_.fetch_add(std::exchange(uncounted_, 0), std::memory_order_relaxed);
        return walk_.stopped_();
    }

    FolderWalk& walk_;
    std::string path_;
    std::size_t prefixLength_;
    std::string_view relativePath_;
    NodeArena& arena_;
    std::vector<std::shared_ptr<Node>>& nodes_;
    std::vector<std::string> subfolders_;
    std::size_t entries_ = 0;
    std::size_t uncounted_ = 0;
};

FolderWalk::FolderWalk(std::string source, Rules rules, std::atomic<std::size_t>& counter,
                       const StopCheck& stopped)
    : source_(std::move(source)), rules_(rules), counter_(counter), stopped_(stopped) {}

std::vector<std::shared_ptr<Node>> FolderWalk::run() {
    pending_.push_back(source_);
    work();
    for (std::thread& helper : helpers_) helper.join();
    return std::move(found_);
}

void FolderWalk::work() {
    NodeArena arena;
    std::vector<std::shared_ptr<Node>> nodes;
    std::string folder;
    while (takeFolder(folder)) {
        FolderVisit visit(*this, folder, arena, nodes);
        if (const int error = visit.read(folder); error != 0) {
            platform::reportReadFailure(folder, error);
        }
        finishFolder(visit.takeSubfolders());
    }
    const std::lock_guard lock(mutex_);
    found_.insert(found_.end(), std::make_move_iterator(nodes.begin()),
                  std::make_move_iterator(nodes.end()));
}

/// False when all is done, or the walk is to stop.
bool FolderWalk::takeFolder(std::string& folder) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !pending_.empty() || busy_ == 0; });
    if (pending_.empty() || stopped_()) {
        pending_.clear();
        changed_.notify_all();
        return false;
    }
    folder = std::move(pending_.back());
    pending_.pop_back();
    ++busy_;
    return true;
}

void FolderWalk::finishFolder(std::vector<std::string> subfolders) {
    const std::lock_guard lock(mutex_);
    --busy_;
    pending_.insert(pending_.end(), std::make_move_iterator(subfolders.begin()),
                    std::make_move_iterator(subfolders.end()));
    startHelpersIfWorthwhile();
    changed_.notify_all();
}

void FolderWalk::startHelpersIfWorthwhile() {
    if (!helpers_.empty() || pending_.size() < foldersWorthHelpers) return;
    for (unsigned i = 1; i < platform::workerCount(); ++i) {
        if (!platform::startThread(helpers_, [this] { work(); })) return;
    }
}

}  // namespace marquell::pipeline
