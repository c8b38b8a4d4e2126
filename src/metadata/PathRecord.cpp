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

void PathRecord::store(MetadataSource source, std::span<const KeyedValue> values) {
    for (const KeyedValue& value : values) {
        if (value.key != MetadataKey::retrieved) continue;
        const bool* flag = std::get_if<BoolValue>(&value.value);
        setRetrieved(source, flag != nullptr && *flag);
    }
    values_.store(source, values);
}

void PathRecord::storeBasicInformation(const platform::EntryAttributes& attributes) {
    size_ = attributes.size;
    creationSeconds_ = attributes.creation ? attributes.creation->seconds : 0;
    creationNanoseconds_ = attributes.creation ? attributes.creation->nanoseconds : noDate;
    modificationSeconds_ = attributes.modification ? attributes.modification->seconds : 0;
    modificationNanoseconds_ =
        attributes.modification ? attributes.modification->nanoseconds : noDate;
    hasBasicInformation_ = true;
    values_.erase(MetadataSource::basic, [this](MetadataKey key) {
        return !std::holds_alternative<None>(basicValue(key));
    });
}

WrappedMetaDataValue PathRecord::find(MetadataKey key, MetadataSource source) const {
    if (key == MetadataKey::retrieved) {
        return isRetrieved(source) ? WrappedMetaDataValue(true) : None{};
    }
    WrappedMetaDataValue value = values_.find(key, source);
    if (!std::holds_alternative<None>(value)) return value;
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
