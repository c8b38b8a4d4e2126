// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/PathRecord.h"

#include <string>
#include <utility>

#include "platform/ByteCount.h"

namespace marquell::metadata {
namespace {

std::string roundedUpText(std::int64_t bytes, std::int64_t unit) {
    return std::to_string(bytes / unit + (bytes % unit != 0 ? 1 : 0));
}

}  // namespace

void PathRecord::store(MetadataKey key, MetadataSource source, StoredValue value) {
    if (key == MetadataKey::retrieved) {
        const bool* flag = std::get_if<BoolValue>(&value);
        setRetrieved(source, flag != nullptr && *flag);
        return;
    }
    const auto same = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return entry.key == key && entry.source == source;
    });
    if (same != entries_.end()) {
        same->value = std::move(value);
    } else {
        entries_.push_back({key, source, std::move(value)});
    }
}

void PathRecord::storeBasicInformation(const platform::EntryAttributes& attributes) {
    size_ = attributes.size;
    creationSeconds_ = attributes.creation ? attributes.creation->seconds : 0;
    creationNanoseconds_ = attributes.creation ? attributes.creation->nanoseconds : noDate;
    modificationSeconds_ = attributes.modification ? attributes.modification->seconds : 0;
    modificationNanoseconds_ =
        attributes.modification ? attributes.modification->nanoseconds : noDate;
    hasBasicInformation_ = true;
    std::erase_if(entries_, [this](const Entry& entry) {
        return entry.source == MetadataSource::basic &&
               !std::holds_alternative<None>(basicValue(entry.key));
    });
}

WrappedMetaDataValue PathRecord::find(MetadataKey key, MetadataSource source) const {
    if (key == MetadataKey::retrieved) {
        return isRetrieved(source) ? WrappedMetaDataValue(true) : None{};
    }
    for (const Entry& entry : entries_) {
        if (entry.key != key || entry.source != source) continue;
        return std::visit([](const auto& held) -> WrappedMetaDataValue { return held; },
                          entry.value);
    }
    if (source == MetadataSource::basic && hasBasicInformation_) return basicValue(key);
    return None{};
}

WrappedMetaDataValue PathRecord::basicValue(MetadataKey key) const {
    const auto date = [](std::int64_t seconds, std::uint32_t nanoseconds) -> WrappedMetaDataValue {
        if (nanoseconds == noDate) return None{};
        return platform::Date{seconds, nanoseconds};
    };
    switch (key) {
        case MetadataKey::size:
            return size_;
        case MetadataKey::creation_date:
            return date(creationSeconds_, creationNanoseconds_);
        case MetadataKey::modification_date:
            return date(modificationSeconds_, modificationNanoseconds_);
        case MetadataKey::size_in_bytes:
            return std::to_string(size_);
        case MetadataKey::human_readable_size:
            return platform::byteCountText(size_);
        case MetadataKey::size_in_kb:
            return roundedUpText(size_, 1024);
        case MetadataKey::size_in_mb:
            return roundedUpText(size_, 1'048'576);
        case MetadataKey::retrieved:
            break;
    }
    return None{};
}

}  // namespace marquell::metadata
