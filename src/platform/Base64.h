// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace marquell::platform {

/// The padded form with the alphabet that ends in "+/".
std::string base64(std::string_view bytes);

/// The bytes that `text` stands for; absent unless it is exactly what base64() gives for them.
std::optional<std::string> bytesOfBase64(std::string_view text);

}  // namespace marquell::platform
