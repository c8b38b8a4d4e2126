// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/info/InfoPaneColumnTableCellView.h"

#include "metadata/TagManager.h"

namespace marquell::window {
namespace {

using toolkit::ColorRole;

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace

InfoPaneColumnTableCellView::InfoPaneColumnTableCellView(std::string_view columnId) {
    const auto& tags = metadata::TagManager::shared();
    nameLabel.text = text(tags.displayName(columnId));
    nameLabel.abbreviation = text(tags.abbreviation(columnId).value_or(""));
}

void InfoPaneColumnTableCellView::setLabelColors(bool highlighted) {
    nameLabel.textRole = highlighted ? ColorRole::selectionText : ColorRole::headerText;
    nameLabel.abbreviationRole =
        highlighted ? ColorRole::selectionSecondaryText : ColorRole::secondaryText;
}

}  // namespace marquell::window
