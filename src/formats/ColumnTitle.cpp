// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/ColumnTitle.h"

#include "metadata/TagManager.h"

namespace marquell::formats {

std::string columnTitle(std::string_view columnId, int includeColumnTitlesMode) {
    const metadata::TagManager& catalogue = metadata::TagManager::shared();
    if (includeColumnTitlesMode == 2) return catalogue.decoratedTitle(columnId);
    return std::string(catalogue.displayName(columnId));
}

}  // namespace marquell::formats
