// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/SourceTableCellView.h"

#include <utility>

#include "platform/Utf8.h"

namespace marquell::lists {
namespace {

QString shownPath(const std::string& path) {
    return QString::fromStdString(platform::displayText(path));
}

}  // namespace

SourceTableCellView::SourceTableCellView(const std::string& path, std::function<void()> remove)
    : ListTableCellView(shownPath(path), std::move(remove)) {
    nameLabel.text = shownPath(path);
    nameLabel.elideMode = Qt::ElideMiddle;  // the name stays
}

}  // namespace marquell::lists
