// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPalette>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Surface.h"

namespace marquell::toolkit {
namespace {

struct PaletteEntry {
    QPalette::ColorRole place;
    ColorRole usual;
    ColorRole disabled;
};

constexpr PaletteEntry entries[] = {
    {QPalette::Window, ColorRole::window, ColorRole::window},
    {QPalette::WindowText, ColorRole::text, ColorRole::disabledText},
    {QPalette::Base, ColorRole::base, ColorRole::base},
    {QPalette::AlternateBase, ColorRole::alternateBase, ColorRole::alternateBase},
    {QPalette::Text, ColorRole::text, ColorRole::disabledText},
    {QPalette::Button, ColorRole::controlFill, ColorRole::controlFillDisabled},
    {QPalette::ButtonText, ColorRole::text, ColorRole::disabledText},
    {QPalette::BrightText, ColorRole::accentText, ColorRole::disabledText},
    {QPalette::PlaceholderText, ColorRole::secondaryText, ColorRole::disabledText},
    {QPalette::Highlight, ColorRole::selection, ColorRole::selection},
    {QPalette::HighlightedText, ColorRole::selectionText, ColorRole::selectionSecondaryText},
    {QPalette::Link, ColorRole::selectedSegmentText, ColorRole::disabledText},
    {QPalette::LinkVisited, ColorRole::selectedSegmentText, ColorRole::disabledText},
    {QPalette::ToolTipBase, ColorRole::menu, ColorRole::menu},
    {QPalette::ToolTipText, ColorRole::text, ColorRole::text},
    {QPalette::Light, ColorRole::controlFillHover, ColorRole::controlFillDisabled},
    {QPalette::Midlight, ColorRole::controlFillHover, ColorRole::controlFillDisabled},
    {QPalette::Mid, ColorRole::separator, ColorRole::separator},
    {QPalette::Dark, ColorRole::controlBorder, ColorRole::controlBorderDisabled},
    {QPalette::Shadow, ColorRole::controlBorder, ColorRole::controlBorderDisabled},
};

}  // namespace

QPalette paletteOf(Surface surface) {
    QPalette palette;
    for (const auto& [place, usual, disabled] : entries) {
        palette.setColor(QPalette::Active, place, color(usual, surface));
        palette.setColor(QPalette::Inactive, place, color(usual, surface));
        palette.setColor(QPalette::Disabled, place, color(disabled, surface));
    }
    return palette;
}

}  // namespace marquell::toolkit
