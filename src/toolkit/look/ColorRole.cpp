// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/ColorRole.h"

#include <array>
#include <cstddef>

namespace marquell::toolkit {
namespace {

struct Row {
    ColorRole role;
    QRgb light, dark, column;
};

// Opacity, red, green, blue. Lists on the column are light or dark; their colours stand in its row
// for the dialogs' sake only, so that nothing on it can be illegible.
constexpr std::array rows = {
    Row{ColorRole::base, 0xffffffff, 0xff1a1a1a, 0xff104b7c},
    Row{ColorRole::alternateBase, 0xfff4f5f5, 0xff222222, 0xff12538a},
    Row{ColorRole::window, 0xfff1f2f4, 0xff262626, 0xff166bb1},
    Row{ColorRole::windowLine, 0xffd3d7db, 0xff3a3a3a, 0xff10558f},
    Row{ColorRole::menu, 0xffffffff, 0xff262626, 0xff104b7c},
    Row{ColorRole::menuBorder, 0xffc4c9ce, 0xff4a4a4a, 0xff73a6d0},
    Row{ColorRole::header, 0xffeceef0, 0xff2a2a2a, 0xff10558f},
    Row{ColorRole::headerLine, 0xffc4c9ce, 0xff4a4a4a, 0xff73a6d0},
    Row{ColorRole::page, 0xffffffff, 0xff1a1a1a, 0xff166bb1},
    Row{ColorRole::tagBand, 0xffd9cfe8, 0xff3a2e4d, 0xff3a2e4d},
    Row{ColorRole::effectGround, 0xff2b3138, 0xff2b3138, 0xff2b3138},
    Row{ColorRole::effectGroundInactive, 0xff22272c, 0xff22272c, 0xff22272c},

    Row{ColorRole::text, 0xff1a1a1a, 0xfff0f0f0, 0xffffffff},
    Row{ColorRole::headerText, 0xff1a1a1a, 0xfff0f0f0, 0xffffffff},
    Row{ColorRole::secondaryText, 0xff5e5e5e, 0xffa0a0a0, 0xffb7c9d8},
    Row{ColorRole::waitingText, 0xff707070, 0xff8f8f8f, 0xffb7c9d8},
    Row{ColorRole::disabledText, 0xff8a8a8a, 0xff757575, 0xff88a5be},

    Row{ColorRole::selection, 0xff1765a8, 0xff1765a8, 0xff1765a8},
    Row{ColorRole::selectionText, 0xffffffff, 0xffffffff, 0xffffffff},
    Row{ColorRole::selectionSecondaryText, 0xffdce8f2, 0xffdce8f2, 0xffdce8f2},

    Row{ColorRole::controlBorder, 0xff868e96, 0xff6e757c, 0xff73a6d0},
    Row{ColorRole::controlBorderHover, 0xff868e96, 0xff6e757c, 0xffa2c4e0},
    Row{ColorRole::controlBorderDisabled, 0xffc4c9ce, 0xff4a4a4a, 0xff5088bc},
    Row{ColorRole::controlFill, 0xffffffff, 0xff2a2a2a, 0xff104b7c},
    Row{ColorRole::controlFillHover, 0xfff1f2f4, 0xff343434, 0xff12538a},
    Row{ColorRole::controlFillPressed, 0xffe3e6e9, 0xff202020, 0xff0c3d66},
    Row{ColorRole::controlFillDisabled, 0xffffffff, 0xff222222, 0xff104b7c},
    Row{ColorRole::accentFill, 0xff1765a8, 0xff1f6fb5, 0xff104b7c},
    Row{ColorRole::accentFillHover, 0xff1b70b8, 0xff2277bf, 0xff12538a},
    Row{ColorRole::accentFillPressed, 0xff12528a, 0xff185c99, 0xff0c3d66},
    Row{ColorRole::accentFillDisabled, 0xffe3e6e9, 0xff2f2f2f, 0xff104b7c},
    Row{ColorRole::accentText, 0xffffffff, 0xffffffff, 0xffffffff},
    Row{ColorRole::selectedSegmentFill, 0xffdce9f5, 0xff1d3a55, 0xff0c3d66},
    Row{ColorRole::selectedSegmentBorder, 0xff1765a8, 0xff4a9be0, 0xffffffff},
    Row{ColorRole::selectedSegmentText, 0xff0f4f86, 0xffdcebf9, 0xffffffff},
    Row{ColorRole::infoTabFill, 0xffeceef0, 0xff2a2a2a, 0xff104b7c},
    Row{ColorRole::infoTabHover, 0xffe3e6e9, 0xff343434, 0xff12538a},
    Row{ColorRole::glyphHover, 0xffeceef0, 0xff2e2e2e, 0xff12538a},
    Row{ColorRole::glyphPressed, 0xffdde1e5, 0xff242424, 0xff0c3d66},
    Row{ColorRole::listFrame, 0xff868e96, 0xff6e757c, 0xff0d3f69},
    Row{ColorRole::divider, 0xff868e96, 0xff6e757c, 0xff73a6d0},
    Row{ColorRole::separator, 0xffc4c9ce, 0xff4a4a4a, 0xffbababa},
    Row{ColorRole::scrollThumb, 0xff8e8e8e, 0xff7a7a7a, 0x99ffffff},
    Row{ColorRole::scrollThumbHover, 0xff6e6e6e, 0xff969696, 0xd9ffffff},
    Row{ColorRole::scrollEdge, 0xffd3d7db, 0xff3a3a3a, 0xff10558f},
    Row{ColorRole::focusRing, 0xff1765a8, 0xff4a9be0, 0xd9ffffff},
};

constexpr bool inOrder() {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (static_cast<std::size_t>(rows[i].role) != i) return false;
    }
    return rows.back().role == ColorRole::focusRing;
}
static_assert(inOrder(), "a row for each role, in the order of the roles");

}  // namespace

QColor color(ColorRole role, Surface surface) {
    const Row& row = rows.at(static_cast<std::size_t>(role));
    switch (surface) {
        case Surface::light:
            return QColor::fromRgba(row.light);
        case Surface::dark:
            return QColor::fromRgba(row.dark);
        case Surface::column:
            break;
    }
    return QColor::fromRgba(row.column);
}

QColor color(ColorRole role, const QWidget* view) { return color(role, surfaceOf(view)); }

}  // namespace marquell::toolkit
