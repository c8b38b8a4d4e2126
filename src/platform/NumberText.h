// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace marquell::platform {

/// A finite number as plain decimal text: the shortest that reads back as the same double, without
/// exponent and without a fraction of 0, e.g. 2.8, 0.004, 3000. Minus zero is 0.
std::string numberText(double number);

/// The same with at most one digit behind the point. A text that ends in the very middle between
/// two such numbers goes to the even digit: 0.25 becomes 0.2, 0.35 becomes 0.4.
std::string oneDecimalText(double number);

}  // namespace marquell::platform
