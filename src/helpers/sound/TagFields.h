// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "helpers/common/Input.h"
#include "helpers/sound/SoundTags.h"

namespace marquell::helpers {

/// The fields of one family of tags by their names. The first of several of one name counts.
class TagFields {
public:
    /// An empty text is none.
    void add(std::string_view name, const std::string& text);
    /// Of several of one name makes one text, with commas.
    void append(std::string_view name, const std::string& text);
    /// Absent: null.
    const std::string* find(std::string_view name) const;
    const std::map<std::string, std::string, std::less<>>& all() const { return texts_; }

private:
    std::map<std::string, std::string, std::less<>> texts_;
};

/// Where tags have a place beside the common keys.
enum class TagPlace { lyrics, comment, version, keywords };

/// Where a field goes.
struct TagRow {
    std::string_view field;
    std::variant<platform::AudioVisualPropertyKey, TagPlace> target;
};

/// Sets what a text says unless something is there; a location that is a position takes the place
/// of a mere name. Keywords are split at commas and semicolons.
void addTag(SoundTags& tags, const decltype(TagRow::target)& target, const std::string& text);

/// The same for the fields of the rows, of which the first ones have preference.
void addFields(SoundTags& tags, const TagFields& fields, std::span<const TagRow> rows);

/// Reads the parts of a file that tags are made of, with bounds for the whole file.
class TagInput {
public:
    explicit TagInput(Input& input) : input_(input) {}

    Input& input() { return input_; }

    /// Counts a box, item or the like; false when there have been enough of them.
    bool step() { return steps_ > 0 && steps_-- > 0; }

    /// The bytes from `begin` to `end`; empty if they are too many for a text.
    std::string bytes(std::uint64_t begin, std::uint64_t end);

private:
    Input& input_;
    std::size_t steps_ = maximumSteps;
    std::size_t bytesLeft_ = std::size_t{4} << 20U;
};

}  // namespace marquell::helpers
