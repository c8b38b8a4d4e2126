// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/TagTableCellView.h"

#include <utility>

#include "platform/Localization.h"
#include "toolkit/look/VisibleText.h"

namespace marquell::lists {

using toolkit::ColorRole;

TagTableCellView::TagTableCellView(const QString& title, const QString& abbreviation,
                                   std::function<void()> add) {
    nameLabel.text = title;
    nameLabel.abbreviation = abbreviation;
    const QString name = abbreviation.isEmpty() ? title : title + u' ' + abbreviation;
    const QString called = QString::fromStdString(platform::localized("Add %1", "accessible name"))
                               .arg(toolkit::visibleText(name));
    button = toolkit::RowButton{toolkit::Glyph::plus, called, std::move(add)};
}

void TagTableCellView::setLabelColors(bool highlighted) {
    nameLabel.textRole = highlighted ? ColorRole::selectionText : ColorRole::text;
    nameLabel.abbreviationRole =
        highlighted ? ColorRole::selectionSecondaryText : ColorRole::secondaryText;
}

}  // namespace marquell::lists
