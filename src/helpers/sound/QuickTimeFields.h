// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "helpers/common/IsoBoxes.h"
#include "helpers/sound/PlainTagNames.h"
#include "helpers/sound/TagFields.h"

namespace marquell::helpers {

/// Siblings, with the file's bound for boxes.
class TagBoxWalk {
public:
    TagBoxWalk(TagInput& input, std::uint64_t begin, std::uint64_t end)
        : input_(input), walk_(input.input(), begin, end) {}

    bool next(IsoBox& box) { return input_.step() && walk_.next(box); }

private:
    TagInput& input_;
    IsoBoxWalk walk_;
};

/// The first box of the type between `begin` and `end`.
std::optional<IsoBox> findTagBox(TagInput& input, std::uint64_t begin, std::uint64_t end,
                                 std::string_view type);

/// The families of tags that QuickTime, MP4 and 3GP files know; the first ones have preference.
struct QuickTimeFields {
    NamedTagFields keys;      ///< those with names of a "keys" box
    TagFields items;          ///< those of iTunes by their four characters
    NamedTagFields ownItems;  ///< the same with names
    TagFields userData;       ///< classic ones by their four characters
    TagFields mobile;         ///< those of 3GP
};

/// Adds what a "meta" box has.
void addQuickTimeItems(QuickTimeFields& fields, TagInput& input, const IsoBox& meta);

/// Adds what a "udta" box has.
void addQuickTimeUserData(QuickTimeFields& fields, TagInput& input, const IsoBox& userData);

}  // namespace marquell::helpers
