// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <sys/xattr.h>

#include <optional>
#include <string>
#include <vector>

#include "pipeline/Node.h"
#include "platform/Path.h"
#include "platform/Surroundings.h"
#include "support/NodeAt.h"

namespace marquell::pipeline {
namespace {

using tests::nodeAt;

struct PathForms {
    std::string absolutePath;
    std::string relativePath;
    std::string name;
    std::string fileName;
    std::string upToFirstPeriod;
    std::optional<std::string> extension;
    std::string parent;
    std::string absoluteParentPath;
};

TEST(Node, NamesAndPaths) {
    const PathForms cases[] = {
        {"/in/archive.tar.gz", "", "archive.tar.gz", "archive.tar", "archive", "gz", "in", "/in"},
        {"/s/a/b/README", "a/b", "README", "README", "README", {}, "b", "/s/a/b"},
        {"/README", "", "README", "README", "README", {}, "/", "/"},
        {"/a/b/c.d", "a/b", "c.d", "c", "c", "d", "b", "/a/b"},
        {"/", "", "/", "/", "/", {}, "", "/"},
        {"/h/.profile", "", ".profile", ".profile", "", {}, "h", "/h"},
        {"/h/.a.b", "", ".a.b", ".a", "", "b", "h", "/h"},
        {"/h/a.", "", "a.", "a", "a", {}, "h", "/h"},
        {"/h/scratch..tiff", "", "scratch..tiff", "scratch.", "scratch", "tiff", "h", "/h"},
        {"/h/..a", "", "..a", ".", "", "a", "h", "/h"},
        {"/x.y/a.b c", "", "a.b c", "a", "a", "b c", "x.y", "/x.y"},
        {"/\xff/\x82.\xe2", "\xff", "\x82.\xe2", "\x82", "\x82", "\xe2", "\xff", "/\xff"},
    };
    for (const PathForms& forms : cases) {
        SCOPED_TRACE(forms.absolutePath);
        const auto node = nodeAt(forms.absolutePath, forms.relativePath);
        EXPECT_EQ(node->absolutePath(), forms.absolutePath);
        EXPECT_EQ(node->relativePath(), forms.relativePath);
        EXPECT_EQ(node->name(), forms.name);
        EXPECT_EQ(node->fileName(), forms.fileName);
        EXPECT_EQ(node->fileNameUpToFirstPeriod(), forms.upToFirstPeriod);
        EXPECT_EQ(node->fileExtension(), forms.extension);
        EXPECT_EQ(node->parent(), forms.parent);
        EXPECT_EQ(node->absoluteParentPath(), forms.absoluteParentPath);
    }
}

TEST(Node, BytesThatAreNoTextBecomeOneReplacementEach) {
    const auto node = nodeAt(
        "/\xe2\x82"
        "A/ok");
    EXPECT_EQ(node->text(node->parent()), "\uFFFD\uFFFDA");
    EXPECT_EQ(node->text(node->name()), "ok");
    const metadata::WrappedMetaDataValue length =
        node->getWrappedValueSync("full_path_name_length");
    EXPECT_EQ(length, metadata::WrappedMetaDataValue(std::int64_t{7}));
}

TEST(Node, OutlivesItsArenaAndItsList) {
    std::vector<std::shared_ptr<Node>> kept;
    {
        NodeArena arena;
        std::vector<std::shared_ptr<Node>> all;
        for (std::size_t i = 0; i < 5000; ++i) {
            // Some are longer than a first block.
            const std::string path = "/" + std::string(i % 997 == 0 ? 9000 : i % 50, 'p') + "/n";
            all.push_back(arena.make<FolderNode>("n", path, {}));
        }
        for (std::size_t i = 0; i < all.size(); i += 997) kept.push_back(all[i]->shared());
    }
    for (const auto& node : kept) EXPECT_EQ(node->absolutePath().size(), 9003U);
}

TEST(Node, ReadsTagsOnce) {
    const tests::TemporaryFolder folder;
    const std::string path = folder / "tagged";
    tests::writeFile(path, "");
    const auto setTags = [&](const std::string& tags) {
        return ::setxattr(path.c_str(), "user.xdg.tags", tags.data(), tags.size(), 0) == 0;
    };
    if (!setTags(" red , ,to do\n,\xff")) GTEST_SKIP() << "no user attributes here";
    const auto node = nodeAt(path);
    ASSERT_NE(node->tags(), nullptr);
    EXPECT_EQ(*node->tags(), "red, to do, \uFFFD");
    setTags(" , ");
    EXPECT_EQ(*node->tags(), "red, to do, \uFFFD");
    EXPECT_EQ(nodeAt(path)->tags(), nullptr);
    EXPECT_EQ(nodeAt(folder / "missing")->tags(), nullptr);
}

}  // namespace
}  // namespace marquell::pipeline
