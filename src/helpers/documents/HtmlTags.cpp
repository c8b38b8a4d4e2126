// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/documents/HtmlTags.h"

#include <algorithm>
#include <cstddef>

#include "helpers/documents/DocumentText.h"

namespace marquell::helpers {

std::string_view HtmlTag::attribute(std::string_view wanted) const {
    for (const auto& [key, value] : attributes) {
        if (isSameName(key, wanted)) return value;
    }
    return {};
}

bool HtmlTags::next(HtmlTag& tag) {
    while (true) {
        takeUntil("<");
        if (rest_.size() < 2) return false;
        if (rest_.starts_with("<!--")) {
            rest_.remove_prefix(2);
            skipPast("-->");
        } else if (rest_[1] == '/' || rest_[1] == '!' || rest_[1] == '?') {
            skipPast(">");
        } else if (!isLetter(rest_[1])) {
            rest_.remove_prefix(1);
        } else {
            rest_.remove_prefix(1);
            tag.name = takeUntil(" \t\r\n\f/>");
            takeAttributes(tag);
            const bool isOpaque = isSameName(tag.name, "script") || isSameName(tag.name, "style");
            if (isOpaque) textUntilEndOf(tag.name);
            return true;
        }
    }
}

std::optional<std::string_view> HtmlTags::textUntilEndOf(std::string_view name) {
    const std::string_view begin = rest_;
    while (!rest_.empty()) {
        takeUntil("<");
        if (rest_.starts_with("</") && isSameName(rest_.substr(2, name.size()), name)) {
            const std::string_view text = begin.substr(0, begin.size() - rest_.size());
            skipPast(">");
            return text;
        }
        rest_.remove_prefix(std::min<std::size_t>(1, rest_.size()));
    }
    return std::nullopt;
}

void HtmlTags::skipPast(std::string_view end) {
    const std::size_t found = rest_.find(end);
    rest_.remove_prefix(found == std::string_view::npos ? rest_.size() : found + end.size());
}

/// What precedes the first of the bytes.
std::string_view HtmlTags::takeUntil(std::string_view bytes) {
    const std::string_view taken = rest_.substr(0, rest_.find_first_of(bytes));
    rest_.remove_prefix(taken.size());
    return taken;
}

void HtmlTags::skipBlanks() {
    while (!rest_.empty() && isBlank(rest_.front())) rest_.remove_prefix(1);
}

/// Leaves what follows the tag.
void HtmlTags::takeAttributes(HtmlTag& tag) {
    tag.attributes.clear();
    while (!rest_.empty()) {
        if (rest_.front() == '>') {
            rest_.remove_prefix(1);
            return;
        }
        const std::string_view key = takeUntil(" \t\r\n\f/>=");
        skipBlanks();
        std::string_view value;
        if (rest_.starts_with('=')) {
            rest_.remove_prefix(1);
            value = takeValue();
        } else if (rest_.starts_with('/')) {
            rest_.remove_prefix(1);
        }
        if (!key.empty()) tag.attributes.emplace_back(key, value);
    }
}

std::string_view HtmlTags::takeValue() {
    skipBlanks();
    if (!rest_.starts_with('"') && !rest_.starts_with('\'')) return takeUntil(" \t\r\n\f>");
    const std::string_view quote = rest_.substr(0, 1);
    rest_.remove_prefix(1);
    const std::string_view value = takeUntil(quote);
    rest_.remove_prefix(std::min<std::size_t>(1, rest_.size()));
    return value;
}

}  // namespace marquell::helpers
