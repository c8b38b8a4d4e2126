// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Glyph.h"

namespace marquell::toolkit {

/// The text of a cell, in one line, cut with an ellipsis where it is too long.
struct CellLabel {
    QString text;
    QString abbreviation;  // small, behind the text, and never cut; mostly empty
    ColorRole textRole = ColorRole::text;
    ColorRole abbreviationRole = ColorRole::secondaryText;
    Qt::TextElideMode elideMode = Qt::ElideRight;
};

/// A button at the end of a row.
struct RowButton {
    Glyph glyph;
    QString name;  // for tool tip and assistive programs
    std::function<void()> action;
};

/// What one cell of a CellTable shows. The table paints it and tells it beforehand on what ground.
class TableCellView {
public:
    virtual ~TableCellView() = default;

    /// Whether the cell's row is selected. Called before each painting.
    void setHighlighted(bool highlighted) { setLabelColors(highlighted); }

    /// Whether the cell shows what it will show, and nothing is still to come.
    virtual bool isComplete() const { return true; }

    /// Called when the cell is in view, as it was made before, and others have come or gone there.
    virtual void viewMoved() {}

    /// To be called when the cell shows something else than before.
    void needsDisplay() const {
        if (onChange) onChange();
    }

    CellLabel nameLabel;
    QString toolTip;  // empty: the whole text, where it is cut
    std::optional<RowButton> button;
    std::function<void()> onChange;  // the table's own

protected:
    /// Chooses the roles of nameLabel.
    virtual void setLabelColors(bool highlighted) = 0;
};

}  // namespace marquell::toolkit
