// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

#include "platform/HelperProtocol.h"

namespace marquell::metadata {

/// How the content of a file of this MIME type is read; absent if no reader knows it.
std::optional<platform::HelperTask> indexTask(std::string_view type);

}  // namespace marquell::metadata
