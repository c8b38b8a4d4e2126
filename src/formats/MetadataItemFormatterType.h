// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "platform/Date.h"

namespace marquell::formats {

/// Turns typed values into text. Not for two threads at once.
class MetadataItemFormatterType {
public:
    virtual ~MetadataItemFormatterType() = default;
    virtual std::string formatDate(const platform::Date& date) = 0;
    virtual std::string formatNullValue() = 0;
    virtual std::string formatBoolValue(bool value) = 0;
    /// Decimal digits, without grouping.
    virtual std::string formatNumber(std::int64_t number) = 0;
    /// A byte count for people.
    virtual std::string formatSize(std::int64_t bytes) = 0;
};

}  // namespace marquell::formats
