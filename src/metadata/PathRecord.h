// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

#include "metadata/MetadataKey.h"
#include "metadata/MetadataSource.h"
#include "metadata/PackedValues.h"
#include "metadata/WrappedMetaDataValue.h"
#include "platform/FileSystem.h"

namespace marquell::metadata {

/// What the store knows of one path. Sized for lists of millions, of which most files have no more
/// than what the basic source finds: that has fixed fields, and its texts are made when they are
/// read.
class PathRecord {
public:
    /// `path` must live as long as the record.
    explicit PathRecord(std::string_view path) : path_(path) {}

    std::string_view path() const { return path_; }

    /// These replace earlier values of the same keys and source.
    void store(MetadataSource source, std::span<const KeyedValue> values);
    void storeBasicInformation(const platform::EntryAttributes& attributes);
    WrappedMetaDataValue find(MetadataKey key, MetadataSource source) const;

    bool isRetrieved(MetadataSource source) const { return (retrieved_ & bitOf(source)) != 0; }
    void setRetrieved(MetadataSource source, bool retrieved) { set(retrieved_, source, retrieved); }
    /// Whether a thread is at it.
    bool isRetrieving(MetadataSource source) const { return (retrieving_ & bitOf(source)) != 0; }
    void setRetrieving(MetadataSource source, bool retrieving) {
        set(retrieving_, source, retrieving);
    }

private:
    static constexpr std::uint8_t bitOf(MetadataSource source) {
        return static_cast<std::uint8_t>(1U << static_cast<unsigned>(source));
    }
    static void set(std::uint8_t& bits, MetadataSource source, bool on) {
        bits = static_cast<std::uint8_t>(on ? bits | bitOf(source) : bits & ~bitOf(source));
    }

    WrappedMetaDataValue basicValue(MetadataKey key) const;

    static constexpr std::uint32_t noDate = UINT32_MAX;

    std::string_view path_;
    std::int64_t size_ = 0;
    std::int64_t creationSeconds_ = 0;
    std::int64_t modificationSeconds_ = 0;
    std::uint32_t creationNanoseconds_ = noDate;
    std::uint32_t modificationNanoseconds_ = noDate;
    std::uint8_t retrieved_ = 0;   ///< a bit for each source that has finished
    std::uint8_t retrieving_ = 0;  ///< a bit for each source that a thread is at
    bool hasBasicInformation_ = false;
    PackedValues values_;
};

}  // namespace marquell::metadata
