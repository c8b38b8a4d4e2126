// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <compare>
#include <functional>
#include <string>
#include <utility>

namespace marquell::toolkit {

/// A named marker for views. Tags of the same name are the same tag.
class LayoutTag {
public:
    explicit LayoutTag(std::string name) : description(std::move(name)) {}

    friend auto operator<=>(const LayoutTag&, const LayoutTag&) = default;

    std::string description;
};

}  // namespace marquell::toolkit

template <>
struct std::hash<marquell::toolkit::LayoutTag> {
    std::size_t operator()(const marquell::toolkit::LayoutTag& tag) const noexcept {
        return std::hash<std::string>()(tag.description);
    }
};
