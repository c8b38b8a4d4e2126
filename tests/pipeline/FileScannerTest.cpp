// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <sys/fsuid.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "metadata/MetadataStorage.h"
#include "pipeline/FileScanner.h"
#include "pipeline/ScannerOperation.h"
#include "platform/ReadFailures.h"
#include "platform/Surroundings.h"
#include "platform/Workers.h"

namespace marquell::pipeline {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;
using testing::UnorderedElementsAreArray;

using Lines = std::vector<std::string>;

/// Scans a small real tree; `snapshot` says how, and lists everything below it at first.
class FileScannerTest : public testing::Test, protected StageOwner {
protected:
    FileScannerTest() {
        snapshot.processSubFolders = true;
        snapshot.firstSortMode = 14;
        snapshot.sourceList = {root.path()};
        platform::setReadFailureListener([this](std::string_view path, const std::error_code& why) {
            const std::lock_guard lock(mutex_);
            failures.emplace_back(path, why.value());
            if (onFailure) onFailure();
        });
    }
    ~FileScannerTest() override {
        platform::setReadFailureListener({});
        platform::setWorkerCount(workers_);
    }

    void scanOperationFinished(ScannerOperation& operation) override {
        ++timesFinished;
        result = operation.flatFileList();
    }
    void reSortOperationFinished(ReSortFlatFileListOperation&) override { FAIL(); }
    void outputOperationFinished(formats::OutputFormatOperationType&) override { FAIL(); }

    /// These make the folders on the way too, and return the whole path.
    std::string folder(const std::string& relative) const {
        std::filesystem::create_directories(root / relative);
        return root / relative;
    }
    std::string file(const std::string& relative) const {
        folder(std::filesystem::path(relative).parent_path());
        tests::writeFile(root / relative, "");
        return root / relative;
    }

    std::shared_ptr<const FlatFileList> scan() {
        ScannerOperation operation(*this, std::make_shared<DataModelSnapshot>(snapshot));
        EXPECT_FALSE(operation.indeterminateProgress());
        operation.main();
        EXPECT_EQ(timesFinished, 1);
        EXPECT_EQ(operation.totalFileCount(), result->files.size());
        EXPECT_EQ(operation.indeterminateProgress(), !snapshot.sourceList.empty());
        timesFinished = 0;
        return result;
    }

    Lines scannedPaths() {
        Lines paths;
        for (const auto& node : scan()->files) {
            EXPECT_TRUE(node->absolutePath().starts_with(root.path()));
            paths.emplace_back(node->absolutePath().substr(root.path().size()));
        }
        return paths;
    }

    tests::TemporaryFolder root;
    DataModelSnapshot snapshot;
    int timesFinished = 0;
    std::shared_ptr<const FlatFileList> result;
    std::vector<std::pair<std::string, int>> failures;
    std::function<void()> onFailure;

private:
    const unsigned workers_ = platform::workerCount();
    std::mutex mutex_;
};

TEST_F(FileScannerTest, EmptySourceListGivesAnEmptyList) {
    snapshot.sourceList = {};
    EXPECT_THAT(scannedPaths(), IsEmpty());
}

TEST_F(FileScannerTest, PackagesAreFilesAndOnlyRealFoldersAreWalked) {
    for (const char* path : {"plain", ".hidden", ".folder/seen", "x.APP/unseen/file", ".y.app/seen",
                             "f.framework/sub/z.rtfd/unseen"}) {
        file(path);
    }
    using Link = std::pair<const char*, const char*>;
    for (const auto& [target, name] : {Link{".", "loop"}, Link{"f.framework", "link.bundle"},
                                       Link{"gone", "dangling"}, Link{"plain", "to file.app"}}) {
        std::filesystem::create_symlink(target, root / name);
    }
    const Lines files{"/.folder/seen", "/.y.app/seen", "/dangling",    "/f.framework/sub/z.rtfd",
                      "/link.bundle",  "/plain",       "/to file.app", "/x.APP"};
    const Lines folders{"/f.framework", "/f.framework/sub", "/loop"};
    snapshot.processFolders = false;
    EXPECT_THAT(scannedPaths(), UnorderedElementsAreArray(files));
    snapshot.processFolders = true;
    snapshot.processFiles = false;
    EXPECT_THAT(scannedPaths(), UnorderedElementsAreArray(folders));

    // What is a source itself is an item whatever it is, but for folders that are walked.
    snapshot.sourceList = {root / "x.APP", root / "gone", root / ".hidden", root / "loop"};
    const Lines sources{"/x.APP", "/gone", "/.hidden"};
    Lines below = sources;
    for (const std::string& path : folders) below.push_back("/loop" + path);
    EXPECT_THAT(scannedPaths(), UnorderedElementsAreArray(below));
    snapshot.processSubFolders = false;
    EXPECT_THAT(scannedPaths(), UnorderedElementsAre("/x.APP", "/gone", "/.hidden", "/loop"));
}

TEST_F(FileScannerTest, TiesGoBySourceAndThenLevelByLevel) {
    // A slash counts less than the blank and the hyphen, which come before it as bytes.
    for (const char* folder : {"b", "a-", "a", "a b", "a/z", "a\x01"}) {
        file(std::string(folder) + "/same");
        file(std::string(folder) + "/SAME");
    }
    snapshot.processFolders = false;
    snapshot.firstSortMode = snapshot.secondSortMode = 13;
    const Lines inOrder{"/a/SAME",     "/a/same",     "/a/z/SAME", "/a/z/same",
                        "/a\x01/SAME", "/a\x01/same", "/a b/SAME", "/a b/same",
                        "/a-/SAME",    "/a-/same",    "/b/SAME",   "/b/same"};
    EXPECT_EQ(scannedPaths(), inOrder);
    snapshot.firstSortMode = 16;
    EXPECT_EQ(scannedPaths(), inOrder);

    snapshot.sourceList = {root / "b", root / "a/z", folder("empty"), root / "b"};
    EXPECT_THAT(scannedPaths(),
                ElementsAre("/b/SAME", "/b/same", "/a/z/SAME", "/a/z/same", "/b/SAME", "/b/same"));
}

TEST_F(FileScannerTest, WalksFarBeyondTheLongestPathOfTheKernel) {
    // Made and undone from above in pieces with paths that are short enough.
    constexpr int depth = 5000;
    constexpr int pieceDepth = 500;
    const std::string top = root / "d";
    const std::string next = root / "next";
    std::string below;
    for (int i = 1; i < pieceDepth; ++i) below += "/d";
    std::filesystem::create_directories(top + below);
    for (int made = pieceDepth; made < depth; made += pieceDepth) {
        std::filesystem::create_directories(next + below);
        std::filesystem::rename(top, next + below + "/d");
        std::filesystem::rename(next, top);
    }
    const auto list = scan();
    ASSERT_EQ(list->files.size(), static_cast<std::size_t>(depth));
    Node& deepest = *list->files.back();
    EXPECT_EQ(deepest.relativePath().size(), 2U * (depth - 1) - 1);
    EXPECT_EQ(deepest.absolutePath().size(), root.path().size() + 2 * depth);
    metadata::MetadataStorage::shared().clear();
    EXPECT_GT(deepest.getDateValueSync(Column("modification_date")), platform::Date{});
    EXPECT_THAT(failures, IsEmpty());
    while (std::filesystem::exists(top + below + "/d")) {
        std::filesystem::rename(top + below + "/d", next);
        std::filesystem::remove_all(top);
        std::filesystem::rename(next, top);
    }
}

TEST_F(FileScannerTest, AnyNumberOfThreadsGivesTheSameList) {
    for (int i = 0; i < 120; ++i) {
        const std::string folder = std::to_string(i % 40) + "/" + std::to_string(i % 3);
        file(folder + "/x" + std::to_string(i % 10));
    }
    for (const int mode : {2, 12, -1}) {
        snapshot.firstSortMode = snapshot.secondSortMode = mode;
        platform::setWorkerCount(1);
        const Lines byOne = scannedPaths();
        for (const unsigned workers : {2U, 7U}) {
            platform::setWorkerCount(workers);
            EXPECT_EQ(scannedPaths(), byOne) << mode << ", " << workers;
        }
    }
}

TEST_F(FileScannerTest, NamesTheFolderThatItMayNotOpenAndListsTheRest) {
    file("open/a");
    file("shut/b");
    ASSERT_EQ(::chmod((root / "shut").c_str(), 0), 0);
    ASSERT_EQ(::chmod(root.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod((root / "open").c_str(), 0755), 0);
    constexpr unsigned nobody = 65534;  // of this thread alone, for whom root has no say
    const int user = ::setfsuid(nobody);
    const Lines paths = scannedPaths();
    ::setfsuid(static_cast<unsigned>(user));
    ASSERT_EQ(::chmod((root / "shut").c_str(), 0700), 0);
    EXPECT_THAT(paths, UnorderedElementsAre("/open", "/open/a", "/shut"));
    EXPECT_THAT(failures, ElementsAre(Pair(root / "shut", EACCES)));
}

TEST_F(FileScannerTest, CancelledItReportsNothing) {
    file("folder/file");
    snapshot.sourceList = {root / "folder", root / "missing", root / "folder"};
    ScannerOperation before(*this, std::make_shared<DataModelSnapshot>(snapshot));
    before.cancel();
    before.main();
    EXPECT_EQ(before.currentFileCount(), 0U);

    ScannerOperation meanwhile(*this, std::make_shared<DataModelSnapshot>(snapshot));
    onFailure = [&meanwhile] { meanwhile.cancel(); };
    meanwhile.main();
    EXPECT_EQ(meanwhile.currentFileCount(), 2U);  // the last source is not walked any more
    EXPECT_EQ(timesFinished, 0);
}

}  // namespace
}  // namespace marquell::pipeline
