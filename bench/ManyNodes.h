// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>

#include "pipeline/FlatFileList.h"

namespace marquell::bench {

/// A list of made-up nodes: folders of a thousand files, numbered names, in shuffled order.
std::shared_ptr<pipeline::FlatFileList> manyNodes(std::size_t count);

}  // namespace marquell::bench
