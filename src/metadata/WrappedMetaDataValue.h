// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "platform/Date.h"

namespace marquell::metadata {

using StringValue = std::string;  ///< UTF-8
using DateValue = platform::Date;
using BoolValue = bool;
using NSInteger = std::int64_t;

/// No value is known.
struct None {
    friend bool operator==(None, None) = default;
};

/// One value of one file. Numbers other than sizes and lists are stored as the text they show.
using WrappedMetaDataValue = std::variant<StringValue, DateValue, BoolValue, NSInteger, None>;

/// What can be stored: anything but None.
using StoredValue = std::variant<StringValue, DateValue, BoolValue, NSInteger>;

}  // namespace marquell::metadata
