// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/SpotlightHelper.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "metadata/DurationTexts.h"
#include "metadata/FileReaders.h"
#include "metadata/MetadataStorage.h"
#include "pipeline/TextHelpers.h"
#include "platform/NumberText.h"

namespace marquell::metadata {
namespace {

using Attribute = platform::IndexAttribute;
using pipeline::Node;

constexpr std::string_view humanReadableDuration = "human_readable_duration";
constexpr std::string_view durationWithColons = "duration_hh_mm_ss";

template <typename Value>
const Value* valueOf(const IndexItem& item, Attribute attribute) {
    const auto found = item.find(attribute);
    return found == item.end() ? nullptr : std::get_if<Value>(&found->second);
}

/// Whether a number of seconds has the written forms of a duration.
bool isDuration(double seconds) {
    constexpr double end = 9223372036854775808.0;  // 2^63
    return seconds >= 0 && seconds < end;
}

std::optional<platform::Date> dateOf(const IndexItem& item, Attribute attribute) {
    if (const auto* date = valueOf<platform::Date>(item, attribute)) return *date;
    const auto* dates = valueOf<std::vector<platform::Date>>(item, attribute);
    return dates != nullptr && !dates->empty() ? std::optional(dates->front()) : std::nullopt;
}

}  // namespace

SpotlightHelper::SpotlightHelper(FileIndex index) : index_(std::move(index)) {}

SpotlightHelper& SpotlightHelper::shared() {
    static SpotlightHelper helper(FileIndex(&lightReaders, &heavyReaders));
    return helper;
}

bool SpotlightHelper::isWanted(std::string_view storedKey) const {
    return !wanted_ || std::find(wanted_->begin(), wanted_->end(), storedKey) != wanted_->end();
}

void SpotlightHelper::setWantedColumns(std::span<const std::string> ids) {
    wanted_.emplace(ids.begin(), ids.end());
    // Whatever is none of the columns below is about the duration.
    depth_ = isWanted(humanReadableDuration) || isWanted(durationWithColons)
                 ? FileIndex::Depth::content
                 : FileIndex::Depth::entry;
    const auto deepen = [this](const auto& rows) {
        for (const auto& row : rows) {
            if (isWanted(row.storedKey)) {
                depth_ = std::max(depth_, FileIndex::depthOf(row.attribute));
            }
        }
    };
    deepen(allStringValues());
    deepen(allStringArrayValues());
    deepen(allNumericValues());
    deepen(allDateValues());
}

void SpotlightHelper::retrieveAndStoreAllTagsFor(std::span<Node* const> nodes,
                                                 const NodeFinished& finished,
                                                 const pipeline::StopCheck& shouldStop) const {
    index_.lookUp(
        nodes, depth_,
        [this](const Node& node, const IndexItem& item) { store(node.pathKey(), item); }, finished,
        shouldStop);
}

void SpotlightHelper::store(const PathKey& path, const IndexItem& item) const {
    std::vector<KeyedValue> values;
    const auto add = [&](std::string_view key, StoredValue value) {
        if (isWanted(key)) values.push_back({metadataKey(key), std::move(value)});
    };
    for (const StringValueRow& row : allStringValues()) {
        const auto* text = valueOf<std::string>(item, row.attribute);
        if (text != nullptr && !text->empty()) add(row.storedKey, *text);
    }
    for (const StringValueRow& row : allStringArrayValues()) {
        const auto* texts = valueOf<std::vector<std::string>>(item, row.attribute);
        if (texts != nullptr && !texts->empty()) {
            add(row.storedKey, pipeline::asCommaSeparatedString(*texts));
        }
    }
    for (const NumericValueRow& row : allNumericValues()) {
        const auto* number = valueOf<double>(item, row.attribute);
        if (number == nullptr || !std::isfinite(*number)) continue;
        const bool isOfDuration = row.rounding == RoundingPolicy::roundToOneDecimal;
        if (isOfDuration && !isDuration(*number)) continue;
        add(row.storedKey,
            isOfDuration ? platform::oneDecimalText(*number) : platform::numberText(*number));
        if (!isOfDuration) continue;
        add(humanReadableDuration, formatAsDaysAndHoursAndMinutes(*number));
        add(durationWithColons, formatAsHoursAndMinutesAndSecondsWithColon(*number));
    }
    for (const StringValueRow& row : allDateValues()) {
        if (const auto date = dateOf(item, row.attribute)) add(row.storedKey, *date);
    }
    if (!values.empty()) MetadataStorage::shared().store(path, MetadataSource::spotlight, values);
}

}  // namespace marquell::metadata
