// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QKeySequence>
#include <memory>

#include "toolkit/bricks/Brick.h"
#include "toolkit/look/PlainText.h"

namespace marquell::toolkit {

/// Gives the title that the button has at the time of asking; nothing once it is gone.
std::shared_ptr<const TextProviderType> titleProviderOf(const QAbstractButton* button);

/// The button's image, if it has one, and its title.
std::vector<DrawingAsset> imageAndTitleOf(const QAbstractButton& button);

/// A brick over one of Qt's buttons, whose title is plain text.
template <typename Button>
class TitledBrick : public DrawnBrick<Button> {
public:
    using DrawnBrick<Button>::DrawnBrick;

    void setTitle(const QString& title) {
        const QKeySequence keys = this->shortcut();  // a new text takes them away
        this->setText(titleText(title));
        this->setShortcut(keys);
    }
    QString title() const { return textOfTitle(this->text()); }

    /// For drawing operations that show the title.
    std::shared_ptr<const TextProviderType> textProvider() const { return titleProviderOf(this); }
};

/// One that can be drawn otherwise depending on whether it is pressed.
template <typename Button>
class PressedBrick : public TitledBrick<Button> {
public:
    using TitledBrick<Button>::TitledBrick;

    DrawPair normalDrawing;
    DrawPair highlightedDrawing;

protected:
    const DrawPair& currentDrawPair() const override {
        return this->isDown() ? highlightedDrawing : normalDrawing;
    }
    std::vector<DrawingAsset> assets() const override { return imageAndTitleOf(*this); }
};

}  // namespace marquell::toolkit
