// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/SortKeys.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "pipeline/Column.h"
#include "pipeline/Node.h"
#include "pipeline/TextHelpers.h"
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

void appendDate(std::string& key, Node& node, const Column& column) {
    const platform::Date date = node.getDateValueSync(column);
    appendSigned(key, date.seconds);
    appendBigEndian(key, date.nanoseconds);
}

void appendText(std::string& key, const Node& node, std::string_view bytes) {
    if (node.isText()) {
        platform::appendCaseInsensitiveKey(key, bytes);
    } else {
        platform::appendCaseInsensitiveKey(key, node.text(bytes));
    }
}

constexpr std::size_t longestZeroRun = 64;

/// Appends `text` with each run of "0" as one "0" and a byte that keeps the order: what comes
/// behind the run decides whether a longer run is the higher or the lower one. Padded numbers would
/// make keys several times as long.
void appendWithShortZeroRuns(std::string& key, std::string_view text) {
    constexpr std::size_t byteValues = 255;
    constexpr char runGoesOn = static_cast<char>(0x80);
    while (!text.empty()) {
        const std::size_t zero = std::min(text.find('0'), text.size());
        key.append(text.substr(0, zero));
        text.remove_prefix(zero);
        if (text.empty()) return;
        const std::size_t run =
            std::min({text.find_first_not_of('0'), text.size(), longestZeroRun});
        text.remove_prefix(run);
        const bool higherFollows = !text.empty() && static_cast<unsigned char>(text[0]) > '0';
        key.push_back('0');
        if (!text.empty() && text[0] == '0') {
            key.push_back(runGoesOn);
        } else {
            key.push_back(static_cast<char>(higherFollows ? byteValues - run : run));
        }
    }
}

void appendSmartText(std::string& key, const Node& node, std::string_view bytes) {
    // Kept between calls: allocating them anew would take longer than filling them.
    thread_local std::string expanded;
    thread_local std::string folded;
    expanded.clear();
    folded.clear();
    if (node.isText()) {
        appendByExpandingAllNumberGroups(expanded, bytes);
    } else {
        appendByExpandingAllNumberGroups(expanded, node.text(bytes));
    }
    platform::appendCaseInsensitiveKey(folded, expanded);
    appendWithShortZeroRuns(key, folded);
}

void appendSmartName(std::string& key, Node& node) { appendSmartText(key, node, node.name()); }

void appendSmartPath(std::string& key, Node& node) {
    appendSmartText(key, node, node.absolutePath());
}

void appendName(std::string& key, Node& node) { appendText(key, node, node.name()); }

void appendPath(std::string& key, Node& node) { appendText(key, node, node.absolutePath()); }

constexpr std::string_view creation = "creation_date";
constexpr std::string_view modification = "modification_date";
constexpr std::string_view contentCreation = "contentcreationdate";
constexpr std::string_view size = "size";
constexpr std::string_view noColumn;  // of what comes from the path

void appendCreation(std::string& key, Node& node) {
    static const Column column(creation);
    appendDate(key, node, column);
}

void appendModification(std::string& key, Node& node) {
    static const Column column(modification);
    appendDate(key, node, column);
}

void appendContentCreation(std::string& key, Node& node) {
    static const Column column(contentCreation);
    appendDate(key, node, column);
}

void appendSize(std::string& key, Node& node) {
    static const Column column(size);
    appendSigned(key, node.getIntValueSync(column));
}

enum class Direction { ascending, descending };

}  // namespace

struct SortKeyMaker::Mode {
    void (*append)(std::string& key, Node& node);
    Direction direction;
    std::string_view column;  ///< that the keys come from
};

namespace {

/// By mode. Dates start with the newest, texts and sizes with the lowest.
constexpr std::array<SortKeyMaker::Mode, 16> modes = {{
    {&appendSmartName, Direction::ascending, noColumn},
    {&appendSmartName, Direction::descending, noColumn},
    {&appendSmartPath, Direction::ascending, noColumn},
    {&appendSmartPath, Direction::descending, noColumn},
    {&appendCreation, Direction::descending, creation},
    {&appendCreation, Direction::ascending, creation},
    {&appendModification, Direction::descending, modification},
    {&appendModification, Direction::ascending, modification},
    {&appendContentCreation, Direction::descending, contentCreation},
    {&appendContentCreation, Direction::ascending, contentCreation},
    {&appendSize, Direction::ascending, size},
    {&appendSize, Direction::descending, size},
    {&appendName, Direction::ascending, noColumn},
    {&appendName, Direction::descending, noColumn},
    {&appendPath, Direction::ascending, noColumn},
    {&appendPath, Direction::descending, noColumn},
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
    return mode_->append == other.mode_->append;
}

std::string_view SortKeyMaker::column() const { return mode_->column; }

void SortKeyMaker::append(std::string& key, Node& node) const { mode_->append(key, node); }

std::string SortKeyMaker::key(Node& node) const {
    std::string key;
    append(key, node);
    return key;
}

}  // namespace marquell::pipeline
