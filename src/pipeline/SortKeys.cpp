// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/SortKeys.h"

#include <array>
#include <cstdint>

#include "pipeline/Column.h"
#include "pipeline/Node.h"
#include "platform/UnicodeText.h"

namespace marquell::pipeline {
namespace {

/// The highest byte first, so that bytes compare as the numbers do.
template <typename Unsigned>
void appendBigEndian(std::string& key, Unsigned value) {
    for (int shift = static_cast<int>(sizeof(Unsigned)) * 8 - 8; shift >= 0; shift -= 8) {
        key.push_back(static_cast<char>((value >> static_cast<unsigned>(shift)) & 0xFFU));
    }
}

void appendSigned(std::string& key, std::int64_t value) {
    constexpr std::uint64_t signBit = 1ULL << 63U;
    appendBigEndian(key, static_cast<std::uint64_t>(value) ^ signBit);
}

std::string dateKey(Node& node, const Column& column) {
    const platform::Date date = node.getDateValueSync(column);
    std::string key;
    appendSigned(key, date.seconds);
    appendBigEndian(key, date.nanoseconds);
    return key;
}

std::string smartNameKey(Node& node) { return textSortKey(node.smartName()); }
std::string smartPathKey(Node& node) { return textSortKey(node.smartAbsolutePath()); }
std::string nameKey(Node& node) { return textSortKey(node.text(node.name())); }
std::string pathKey(Node& node) { return textSortKey(node.text(node.absolutePath())); }

std::string creationKey(Node& node) {
    static const Column column("creation_date");
    return dateKey(node, column);
}

std::string modificationKey(Node& node) {
    static const Column column("modification_date");
    return dateKey(node, column);
}

std::string contentCreationKey(Node& node) {
    static const Column column("contentcreationdate");
    return dateKey(node, column);
}

std::string sizeKey(Node& node) {
    static const Column column("size");
    std::string key;
    appendSigned(key, node.getIntValueSync(column));
    return key;
}

enum class Direction { ascending, descending };
enum class KeyOrigin { path, metadata };

}  // namespace

struct SortKeyMaker::Mode {
    std::string (*key)(Node& node);
    Direction direction;
    KeyOrigin origin;
};

namespace {

/// By mode. Dates start with the newest, texts and sizes with the lowest.
constexpr std::array<SortKeyMaker::Mode, 16> modes = {{
    {&smartNameKey, Direction::ascending, KeyOrigin::path},
    {&smartNameKey, Direction::descending, KeyOrigin::path},
    {&smartPathKey, Direction::ascending, KeyOrigin::path},
    {&smartPathKey, Direction::descending, KeyOrigin::path},
    {&creationKey, Direction::descending, KeyOrigin::metadata},
    {&creationKey, Direction::ascending, KeyOrigin::metadata},
    {&modificationKey, Direction::descending, KeyOrigin::metadata},
    {&modificationKey, Direction::ascending, KeyOrigin::metadata},
    {&contentCreationKey, Direction::descending, KeyOrigin::metadata},
    {&contentCreationKey, Direction::ascending, KeyOrigin::metadata},
    {&sizeKey, Direction::ascending, KeyOrigin::metadata},
    {&sizeKey, Direction::descending, KeyOrigin::metadata},
    {&nameKey, Direction::ascending, KeyOrigin::path},
    {&nameKey, Direction::descending, KeyOrigin::path},
    {&pathKey, Direction::ascending, KeyOrigin::path},
    {&pathKey, Direction::descending, KeyOrigin::path},
}};

}  // namespace

std::string textSortKey(std::string_view text) {
    std::string key;
    key.reserve(text.size());
    platform::appendCaseInsensitiveKey(key, text);
    return key;
}

SortKeyMaker::SortKeyMaker(int mode)
    : mode_(mode >= 0 && static_cast<std::size_t>(mode) < modes.size()
                ? &modes[static_cast<std::size_t>(mode)]
                : nullptr) {}

bool SortKeyMaker::isDescending() const { return mode_->direction == Direction::descending; }

bool SortKeyMaker::hasSameKeyAs(const SortKeyMaker& other) const {
    return mode_->key == other.mode_->key;
}

bool SortKeyMaker::readsMetadata() const { return mode_->origin == KeyOrigin::metadata; }

std::string SortKeyMaker::key(Node& node) const { return mode_->key(node); }

}  // namespace marquell::pipeline
