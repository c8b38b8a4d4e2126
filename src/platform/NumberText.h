// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace marquell::platform {

/// A finite number as plain decimal text: the shortest that reads back as the same double, without
/// exponent and without a fraction of 0, e.g. 2.8, 0.004, 3000. Minus zero is 0.
std::string numberText(double number);

}  // namespace marquell::platform
