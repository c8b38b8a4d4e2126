// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/column/ColumnsMenu.h"

#include <QMenu>
#include <string>
#include <string_view>

#include "metadata/TagManager.h"
#include "toolkit/bricks/PullDownButtonBrick.h"
#include "toolkit/bricks/SmartMenuItem.h"
#include "toolkit/look/PlainText.h"

namespace marquell::window {
namespace {

using metadata::TagManager;
using toolkit::SmartMenuItem;

constexpr std::string_view separator = "-";

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

void fillSubmenu(QMenu& menu, const TagManager::IdList& columnIds,
                 lists::ColumnListData& columnList) {
    const TagManager& tagManager = TagManager::shared();
    for (const std::string_view id : columnIds) {
        if (id == separator) {
            menu.addSeparator();
            continue;
        }
        const auto add = [id, &columnList] { columnList.add(std::string(id)); };
        menu.addAction(new SmartMenuItem(text(tagManager.displayName(id)), add, &menu));
    }
}

void fillMenu(QMenu& menu, lists::ColumnListData& columnList) {
    const TagManager& tagManager = TagManager::shared();
    auto columnIds = tagManager.columnIDsByCategory.begin();
    for (const std::string& category : tagManager.localizedTagCategories) {
        if (category == separator) {
            menu.addSeparator();
        } else if (columnIds != tagManager.columnIDsByCategory.end()) {
            fillSubmenu(*menu.addMenu(toolkit::titleText(text(category))), *columnIds++,
                        columnList);
        }
    }
}

}  // namespace

void offerColumns(toolkit::PullDownButtonBrick& button, lists::ColumnListData& columnList) {
    button.buttonPressFunction = [&button, &columnList] {
        if (button.menu()->isEmpty()) fillMenu(*button.menu(), columnList);
    };
}

}  // namespace marquell::window
