// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/ListTableCellView.h"

#include <utility>

#include "platform/Localization.h"
#include "toolkit/look/VisibleText.h"

namespace marquell::lists {

using toolkit::ColorRole;

ListTableCellView::ListTableCellView(const QString& name, std::function<void()> remove) {
    const QString called =
        QString::fromStdString(platform::localized("Remove %1", "accessible name"))
            .arg(toolkit::visibleText(name));
    button = toolkit::RowButton{toolkit::Glyph::cross, called, std::move(remove)};
}

void ListTableCellView::setLabelColors(bool highlighted) {
    nameLabel.textRole = highlighted ? ColorRole::selectionText : ColorRole::headerText;
    nameLabel.abbreviationRole =
        highlighted ? ColorRole::selectionSecondaryText : ColorRole::secondaryText;
}

}  // namespace marquell::lists
