// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "metadata/MetadataKey.h"
#include "metadata/MetadataSource.h"
#include "metadata/WrappedMetaDataValue.h"

namespace marquell::metadata {

struct KeyedValue {
    MetadataKey key;
    StoredValue value;
};

/// Values by key and source, packed into one run of bytes: a photo has sixty of them, most of a few
/// letters, and a list has hundreds of thousands of photos.
class PackedValues {
public:
    /// Later values replace earlier ones of the same key and source.
    void store(MetadataSource source, std::span<const KeyedValue> values);
    WrappedMetaDataValue find(MetadataKey key, MetadataSource source) const;
    void erase(MetadataSource source, const std::function<bool(MetadataKey)>& isErased);

private:
    std::string bytes_;
};

}  // namespace marquell::metadata
