// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "pipeline/DataModelSnapshot.h"
#include "toolkit/bricks/EnumTitles.h"

/// The formats as the popup offers them.
template <>
struct marquell::toolkit::EnumTitles<marquell::pipeline::OutputFormatIndexEnum> {
    static std::vector<TitledCase<pipeline::OutputFormatIndexEnum>> cases();
};
