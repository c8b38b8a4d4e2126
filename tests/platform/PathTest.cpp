// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "platform/Packages.h"
#include "platform/Path.h"

namespace marquell::platform {
namespace {

TEST(Path, SplitsNamesAtTheLastDotThatIsNotTheFirstCharacter) {
    using Row = std::array<const char*, 3>;
    for (const auto& [name, stem, extension] :
         {Row{"a.txt", "a", "txt"}, Row{"a.tar.gz", "a.tar", "gz"}, Row{".profile", ".profile", ""},
          Row{"a.", "a", ""}, Row{"..a", ".", "a"}, Row{"scratch..tiff", "scratch.", "tiff"},
          Row{".", ".", ""}, Row{"..", ".", ""}, Row{"a. b", "a", " b"}, Row{"plain", "plain", ""},
          Row{"\xff.\xfe", "\xff", "\xfe"}, Row{"", "", ""}}) {
        EXPECT_EQ(splitExtension(name).stem, stem) << name;
        EXPECT_EQ(splitExtension(name).extension, extension) << name;
    }
}

TEST(Path, MakesPathsAbsoluteInTheirText) {
    using Row = std::array<const char*, 3>;
    for (const auto& [path, base, absolute] :
         {Row{"a", "/b/c", "/b/c/a"}, Row{".", "/b", "/b"}, Row{"..", "/b", "/"},
          Row{"../../..", "/b", "/"}, Row{"x/../y/.//z/", "/", "/y/z"}, Row{"/", "/b", "/"},
          Row{"//a///b//", "/c", "/a/b"}, Row{"/a/../../b/.", "/c", "/b"},
          Row{"...", "/b", "/b/..."}, Row{"\xff\n", "/b", "/b/\xff\n"}, Row{"", "/b", ""},
          Row{"a", "/b/./c/../d//", "/b/d/a"}}) {
        EXPECT_EQ(absolutePath(path, base), absolute) << path << " below " << base;
    }
}

TEST(Path, TakesPathsApartAndPutsThemTogether) {
    using Row = std::array<const char*, 3>;
    for (const auto& [path, folder, name] :
         {Row{"/", "/", "/"}, Row{"/a", "/", "a"}, Row{"/a/b.c", "/a", "b.c"}}) {
        EXPECT_EQ(deletingLastPathComponent(path), folder);
        EXPECT_EQ(lastPathComponent(path), name);
    }
    EXPECT_EQ(joinPath("/", "a/b"), "/a/b");
    EXPECT_EQ(joinPath("/a", "b"), "/a/b");
}

TEST(Packages, AreFoldersWithAStemAndABundleExtension) {
    for (const char* name : {"Mail.app", "x.PHOTOSLIBRARY", "a.b.rtfd", "..app", "a.dsym"}) {
        EXPECT_TRUE(isPackageName(name)) << name;
    }
    for (const char* name : {".app", "app", "a.app.d", "a.application", "a.ap", "a.", "a.framework",
                             "a.app ", "a.plugin"}) {
        EXPECT_FALSE(isPackageName(name)) << name;
    }
}

}  // namespace
}  // namespace marquell::platform
