// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "platform/Date.h"

namespace marquell::formats {

/// Turns typed values into text, which each of these appends. Not for two threads at once.
class MetadataItemFormatterType {
public:
    virtual ~MetadataItemFormatterType() = default;
    virtual void formatDate(std::string& text, const platform::Date& date) = 0;
    virtual void formatNullValue(std::string& text) = 0;
    virtual void formatBoolValue(std::string& text, bool value) = 0;
    /// Decimal digits, without grouping.
    virtual void formatNumber(std::string& text, std::int64_t number) = 0;
    /// A byte count for people.
    virtual void formatSize(std::string& text, std::int64_t bytes) = 0;
};

}  // namespace marquell::formats
