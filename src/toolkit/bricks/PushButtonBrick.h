// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>
#include <functional>
#include <optional>

#include "toolkit/bricks/TitledBrick.h"
#include "toolkit/look/Glyph.h"

namespace marquell::toolkit {

/// A button that does something at once.
class PushButtonBrick : public PressedBrick<QPushButton> {
public:
    explicit PushButtonBrick(QWidget* parent = nullptr);
    PushButtonBrick(const QString& title, std::function<void()> action, QWidget* parent = nullptr);

    /// Makes it a small square button without a frame that shows a glyph. `name` is what it is
    /// called by tool tip and assistive programs.
    void setGlyph(Glyph glyph, const QString& name);

    /// The keys that press the button while its window is active.
    void setKeyEquivalent(const QKeySequence& keys) { setShortcut(keys); }

    /// The keyboard passes it by from now on.
    void setCannotBecomeKeyView() { setFocusPolicy(Qt::NoFocus); }
    bool internalCanBecomeKeyView() const { return focusPolicy() != Qt::NoFocus; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    void apply(const ControlSkin& skin) override;

    std::function<void()> buttonPressFunction;

protected:
    void drawAsStyle(QPainter& painter, const QRectF& frame) override;

private:
    std::optional<Glyph> glyph_;
};

}  // namespace marquell::toolkit
