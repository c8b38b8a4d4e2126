// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "pipeline/DataModelSnapshot.h"

namespace marquell::apps {

/// Applies a "NAME=VALUE" to the snapshot. Returns what is wrong with it, or nothing.
std::optional<std::string> applySetting(std::string_view assignment,
                                        pipeline::DataModelSnapshot& snapshot);

/// The names of all settings, with commas between.
std::string settingNames();

}  // namespace marquell::apps
