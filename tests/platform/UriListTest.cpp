// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <unistd.h>

#include <array>
#include <string>

#include "platform/UriList.h"

namespace marquell::platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(UriList, GivesTheBytesOfEachPath) {
    using Row = std::array<const char*, 2>;
    for (const auto& [address, path] :
         {Row{"file:///a/b.txt", "/a/b.txt"}, Row{"file:/a", "/a"}, Row{"FILE:///A", "/A"},
          Row{"file:///", "/"}, Row{"file://localhost/a", "/a"}, Row{"file://LocalHost/a", "/a"},
          Row{"file:///a%20b%25%23%3f", "/a b%#?"}, Row{"file:///%e6%97%A5\u672C", "/日\u672C"},
          Row{"file:///%FF%0A%01x", "/\xff\n\x01x"}, Row{"file:///raw blank\xfe", "/raw blank\xfe"},
          Row{"file:///a/../b//c/", "/a/../b//c/"}}) {
        EXPECT_THAT(pathsOfUriList(address), ElementsAre(path)) << address;
    }
    std::array<char, 256> name{};
    ASSERT_EQ(::gethostname(name.data(), name.size() - 1), 0);
    EXPECT_THAT(pathsOfUriList("file://" + std::string(name.data()) + "/a"), ElementsAre("/a"));
}

TEST(UriList, LeavesOutWhatIsNoFileHere) {
    for (const char* address : {"",
                                "#file:///a",
                                "http://localhost/a",
                                "files:///a",
                                "/a",
                                "file:",
                                "file://",
                                "file:a",
                                "file://elsewhere/a",
                                "file://localhost",
                                "file://localhost.elsewhere/a",
                                "file:///a%",
                                "file:///a%2",
                                "file:///a%zz",
                                "file:///a%+1",
                                "file:///a% 1",
                                "file:///a%00b",
                                "file:///a%2Fb",
                                "file:///a?b",
                                "file:///a#b",
                                " file:///a"}) {
        EXPECT_THAT(pathsOfUriList(address), IsEmpty()) << address;
    }
    EXPECT_THAT(pathsOfUriList(std::string_view("file:///a\0b", 11)), IsEmpty());
}

TEST(UriList, TakesLinesHoweverTheyEnd) {
    EXPECT_THAT(pathsOfUriList("# two\r\nfile:///b\r\nhttp://x/\r\nfile:///a\r\n\r\nfile:///b"),
                ElementsAre("/b", "/a", "/b"));
    EXPECT_THAT(pathsOfUriList("file:///1\nfile:///2\rfile:///3\n"), ElementsAre("/1", "/2", "/3"));
}

}  // namespace
}  // namespace marquell::platform
