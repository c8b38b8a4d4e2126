// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "pipeline/FlatFileList.h"

namespace marquell::window {

/// The list that the preview table shows. Nothing is copied or prepared: it is the engine's own.
class PreviewTableDataSource {
public:
    std::shared_ptr<const pipeline::FlatFileList> nodes;  ///< null while there is none

    int numberOfRows() const {
        return nodes == nullptr ? 0 : static_cast<int>(nodes->files.size());
    }

    /// Null if there is no such row.
    std::shared_ptr<pipeline::Node> node(int row) const {
        if (row < 0 || row >= numberOfRows()) return nullptr;
        return nodes->files[static_cast<std::size_t>(row)];
    }
};

}  // namespace marquell::window
