// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "helpers/common/Input.h"
#include "helpers/image/ImageKind.h"

namespace marquell::helpers {

/// The IIM data sets of a JPEG or PSD file, as they stand; empty if there are none.
std::string iptcBlock(Input& input, ImageKind kind);

/// The same from a run of Photoshop's resources.
std::string iptcBlockOfResources(Input& resources, std::uint64_t begin, std::uint64_t end);

/// Calls `visit` with each data set of a block, up to the first that is broken.
using DataSetVisitor =
    std::function<void(std::uint8_t record, std::uint8_t dataSet, std::string_view content)>;
void forEachDataSet(std::string_view block, const DataSetVisitor& visit);

}  // namespace marquell::helpers
