// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/TagFields.h"

#include <algorithm>

#include "helpers/common/TextList.h"
#include "helpers/sound/Iso6709.h"

namespace marquell::helpers {
namespace {

using Key = platform::AudioVisualPropertyKey;

void set(std::string& place, const std::string& text) {
    if (place.empty()) place = text;
}

}  // namespace

void TagFields::add(std::string_view name, const std::string& text) {
    if (!text.empty()) texts_.try_emplace(std::string(name), text);
}

void TagFields::append(std::string_view name, const std::string& text) {
    if (text.empty()) return;
    std::string& all = texts_[std::string(name)];
    all += all.empty() ? text : ", " + text;
}

const std::string* TagFields::find(std::string_view name) const {
    const auto found = texts_.find(name);
    return found == texts_.end() ? nullptr : &found->second;
}

void addTag(SoundTags& tags, const decltype(TagRow::target)& target, const std::string& text) {
    if (const Key* const key = std::get_if<Key>(&target)) {
        const auto [entry, isNew] = tags.common.try_emplace(*key, text);
        const bool isBetter = !isNew && *key == Key::commonKeyLocation &&
                              !parseIso6709(entry->second) && parseIso6709(text);
        if (isBetter) entry->second = text;
        return;
    }
    switch (std::get<TagPlace>(target)) {
        case TagPlace::lyrics:
            return set(tags.lyrics, text);
        case TagPlace::comment:
            return set(tags.comment, text);
        case TagPlace::version:
            return set(tags.version, text);
        case TagPlace::keywords:
            if (tags.keywords.empty()) tags.keywords = listedTexts(text, ",;");
    }
}

void addFields(SoundTags& tags, const TagFields& fields, std::span<const TagRow> rows) {
    for (const TagRow& row : rows) {
        if (const std::string* const text = fields.find(row.field)) addTag(tags, row.target, *text);
    }
}

std::string TagInput::bytes(std::uint64_t begin, std::uint64_t end) {
    constexpr std::uint64_t longestText = std::uint64_t{1} << 20U;
    if (begin >= end || end - begin > std::min<std::uint64_t>(longestText, bytesLeft_)) return {};
    const auto length = static_cast<std::size_t>(end - begin);
    bytesLeft_ -= length;
    return input_.bytesAt(begin, length);
}

}  // namespace marquell::helpers
