// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <array>

class QWidget;

namespace marquell::toolkit {

/// The three sizes of controls.
enum class ControlSize { regular, small, mini };

/// What a text is for; decides its size and weight.
enum class FontRole {
    regular,       // menus, buttons, popups, check boxes, labels
    small,         // cells, small controls, status line, subtitles
    mini,          // mini controls, info tabs
    title,         // titles of fragments
    header,        // headers of tables
    abbreviation,  // behind column titles
    monospaced,    // text preview
};

/// The measure of the house, all of it drawn from the user's interface font. Lengths in px.
class Metrics {
public:
    /// `interfaceFont` in the user's size; nothing is smaller than 10 px, whatever it is.
    Metrics(const QFont& interfaceFont, const QFont& monospacedFont);

    /// What a point of the layout is in px: 1 up to an interface font of 15 px, more beyond.
    double scale() const { return scale_; }

    /// A length of the layout in whole px.
    int px(double points) const;

    const QFont& font(FontRole role) const;

    /// 24, 20 and 18 points, but never below the height of a line and 4 px.
    int controlHeight(ControlSize size) const;

    int rowHeight() const;  // of tables, lists and menus

private:
    double scale_;
    std::array<QFont, 7> fonts_;  // by role
    std::array<int, 3> heights_;  // by size
};

/// The measure in force. Reference stays valid until the fonts change.
const Metrics& metrics();

/// Puts another measure in force and has every view and layout follow it.
void setInterfaceFonts(const QFont& interfaceFont, const QFont& monospacedFont);

/// The font that goes with a control of a size.
FontRole fontRoleOf(ControlSize size);

/// Gives a view the font of a role, now and whenever the measure changes.
void setFontRole(QWidget* view, FontRole role);

/// Makes a control one of a size: its height, the shape that the style draws, and its font.
void setControlSize(QWidget* control, ControlSize size);

/// The size that a control was given; regular if none.
ControlSize controlSizeOf(const QWidget* control);

}  // namespace marquell::toolkit
