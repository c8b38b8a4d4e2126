// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/AVKitHelper.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "metadata/FileReaders.h"
#include "metadata/MetadataStorage.h"
#include "platform/Console.h"
#include "platform/DateFormatter.h"
#include "platform/NumberText.h"

namespace marquell::metadata {
namespace {

using pipeline::Node;
using platform::AudioVisualItem;

constexpr std::array<std::string_view, 31> extensions = {
    "mov", "qt",   "mp4", "m4v", "m4a",  "3gp",  "3gpp", "sdv",  "3g2", "3gp2", "caf",
    "wav", "wave", "bwf", "aif", "aiff", "aifc", "cdda", "amr",  "mp3", "au",   "snd",
    "ac3", "eac3", "jpg", "dng", "heic", "avci", "heif", "tiff", "tif"};

/// Image files among them, which hold no tags of these kinds.
constexpr std::array<std::string_view, 7> imageExtensions = {"jpg",  "dng",  "heic", "avci",
                                                             "heif", "tiff", "tif"};

constexpr std::string_view lyricsColumn = "av_lyrics";

template <typename List>
bool contains(const List& list, std::string_view text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

std::optional<platform::HelperJob> jobFor(const Node& node) {
    std::string extension = lowerCaseExtension(node);
    if (!contains(extensions, extension) || contains(imageExtensions, extension)) {
        return std::nullopt;
    }
    return platform::HelperJob{std::string(node.absolutePath()), std::move(extension),
                               platform::HelperTask::soundTags};
}

std::optional<std::string> textOf(const AudioVisualItem& item) {
    if (item.stringValue) return item.stringValue;
    if (item.dateValue) return "date value!" + platform::dateDescription(*item.dateValue);
    if (item.numberValue) return "date number!" + platform::numberText(*item.numberValue);
    return std::nullopt;
}

/// A key as the table has it.
std::string_view tableKey(std::string_view key) {
    constexpr std::size_t shortLength = 3;
    return key.ends_with('\0') ? key.substr(0, shortLength) : key;
}

void reportUnrecognized(std::string_view key, const std::string& value) {
    std::string topic = "key not recognized: ";
    topic += key;
    platform::writeToConsole(topic, topic + ", value " + value);
}

}  // namespace

AVKitHelper::AVKitHelper(Readers readers) : readers_(std::move(readers)) {
    for (const StringValueKey& row : stringValueKeys()) {
        columns_.emplace(row.key, Column{metadataKey(row.storedKey), true});
    }
}

AVKitHelper& AVKitHelper::shared() {
    static AVKitHelper helper(&lightReaders);
    return helper;
}

std::span<const std::string_view> AVKitHelper::supportedFileExtensions() { return extensions; }

void AVKitHelper::setWantedColumns(std::span<const std::string> ids) {
    for (const StringValueKey& row : stringValueKeys()) {
        columns_.at(row.key).isWanted = contains(ids, row.storedKey);
    }
    wantsLyrics_ = contains(ids, lyricsColumn);
}

void AVKitHelper::retrieveAndStoreAllTagsFor(std::span<Node* const> nodes,
                                             const NodeFinished& finished,
                                             const pipeline::StopCheck& shouldStop) const {
    const HelperRetrieval retrieval = {
        &jobFor, [this](const Node& node, const platform::PropertyDictionary& properties) {
            store(node.pathKey(), platform::audioVisualAsset(properties));
        }};
    retrieveByHelpers(retrieval, readers_, nodes, finished, shouldStop);
}

void AVKitHelper::store(const PathKey& path, const platform::AudioVisualAsset& asset) const {
    std::map<MetadataKey, StoredValue> values;
    for (const AudioVisualItem& item : asset.commonMetadata) {
        if (!item.commonKey) continue;
        const auto column = columns_.find(*item.commonKey);
        if (column == columns_.end() || !column->second.isWanted) continue;
        if (auto text = textOf(item)) values[column->second.key] = *std::move(text);
    }
    for (const AudioVisualItem& item : asset.id3Metadata) {
        if (!item.key || !item.stringValue) continue;
        const std::string_view key = tableKey(*item.key);
        const auto column = columns_.find(key);
        if (column == columns_.end()) {
            reportUnrecognized(key, *item.stringValue);
        } else if (column->second.isWanted) {
            values[column->second.key] = *item.stringValue;
        }
    }
    if (asset.lyrics && wantsLyrics_) values[metadataKey(lyricsColumn)] = *asset.lyrics;

    std::vector<KeyedValue> list;
    for (auto& [key, value] : values) list.push_back({key, std::move(value)});
    if (!list.empty()) MetadataStorage::shared().store(path, MetadataSource::avKit, list);
}

}  // namespace marquell::metadata
