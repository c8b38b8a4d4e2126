// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QToolButton>
#include <functional>
#include <optional>

#include "toolkit/bricks/TitledBrick.h"
#include "toolkit/look/Glyph.h"

namespace marquell::toolkit {

class SmartMenuItem;

/// A button with a menu of things to do. It shows its own title or image, never an item's.
class PullDownButtonBrick : public PressedBrick<QToolButton> {
public:
    explicit PullDownButtonBrick(const QString& title = {}, QWidget* parent = nullptr);
    explicit PullDownButtonBrick(const QIcon& image, QWidget* parent = nullptr);

    /// Makes it a button without a frame that shows a glyph and a chevron. `name` is what it is
    /// called by tool tip and assistive programs.
    void setGlyph(Glyph glyph, const QString& name);

    /// The menu, QToolButton::menu(), is there from the start and belongs to the button, and these
    /// items to the menu.
    SmartMenuItem* addItem(SmartMenuItem* item);
    SmartMenuItem* addItem(const QString& title, std::function<void()> actionFunc);
    void addSeparator();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    void apply(const ControlSkin& skin) override;

    /// Called before the menu opens.
    std::function<void()> buttonPressFunction;

protected:
    void drawAsStyle(QPainter& painter, const QRectF& frame) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    double titleWidth() const;
    int imageWidth() const;

    std::optional<Glyph> glyph_;
};

}  // namespace marquell::toolkit
