// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/TagTableDescriptionCellView.h"

#include "platform/Localization.h"

namespace marquell::lists {

using toolkit::ColorRole;

TagTableDescriptionCellView::TagTableDescriptionCellView(const QString& title) {
    nameLabel.text =
        title + QString::fromStdString(platform::localized(" Description", "table cell label"));
}

void TagTableDescriptionCellView::setLabelColors(bool highlighted) {
    nameLabel.textRole = highlighted ? ColorRole::selectionText : ColorRole::text;
}

}  // namespace marquell::lists
