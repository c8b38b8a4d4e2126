// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace marquell::helpers {

/// A tag as it stands in the page.
struct HtmlTag {
    std::string_view name;
    std::vector<std::pair<std::string_view, std::string_view>> attributes;

    /// Empty if there is none.
    std::string_view attribute(std::string_view wanted) const;
};

/// Takes the opening tags off a page, one after the other, each byte looked at a few times at most.
/// Comments, closing tags and what is in scripts and styles are passed over. The page must live as
/// long.
class HtmlTags {
public:
    explicit HtmlTags(std::string_view page) : rest_(page) {}

    /// False at the end.
    bool next(HtmlTag& tag);

    /// What is from here to the closing tag of the name, which is taken off. Absent, and all taken,
    /// if it is not closed.
    std::optional<std::string_view> textUntilEndOf(std::string_view name);

private:
    void skipPast(std::string_view end);
    std::string_view takeUntil(std::string_view bytes);
    void skipBlanks();
    void takeAttributes(HtmlTag& tag);
    std::string_view takeValue();

    std::string_view rest_;
};

}  // namespace marquell::helpers
