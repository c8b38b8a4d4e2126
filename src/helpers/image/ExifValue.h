// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <exiv2/exiv2.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "helpers/image/Rational.h"
#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

// Values of EXIF directories as properties. Each function gives nothing if the value makes no sense
// as what it is asked for.

using OptionalProperty = std::optional<platform::PropertyValue>;

/// The bytes as the file has them, numbers in the given order.
std::string rawBytes(const Exiv2::Value& value, Exiv2::ByteOrder order);

/// One component of a numeric value.
std::optional<double> component(const Exiv2::Value& value, long index);

/// All components of a value of fractions; empty for any other type.
std::vector<Rational> rationals(const Exiv2::Value& value);

/// A number for one, a list of texts for several, a text for text. In a list of several an unknown
/// one is "?".
OptionalProperty plainProperty(const Exiv2::Value& value);

/// The first component as a number.
OptionalProperty firstNumber(const Exiv2::Value& value);

/// Four digits of a version, "0231", as 2.3.1.
OptionalProperty versionText(std::string_view digits);

/// One byte each, as 2.3.0.0.
OptionalProperty dottedNumbers(const Exiv2::Value& value);

/// Hours, minutes and seconds as hh:mm:ss, with a fraction if there is one.
OptionalProperty timeText(const Exiv2::Value& value);

/// Degrees, minutes and seconds as decimal degrees.
OptionalProperty decimalDegrees(const Exiv2::Value& value);

/// Text behind eight bytes that name its encoding. `order` is that of the directory.
OptionalProperty commentText(const std::string& bytes, Exiv2::ByteOrder order);

/// Bytes of no declared kind if they are a text.
OptionalProperty readableText(const std::string& bytes);

/// A text as property, unless it is empty.
OptionalProperty textProperty(std::string text);

}  // namespace marquell::helpers
