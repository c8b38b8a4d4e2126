// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QWidget>

#include "Pages.h"
#include "toolkit/walls/Wall.h"

class QScrollArea;

namespace marquell::toolkit {
class PopUpButtonBrick;
class SwitchBrick;
}  // namespace marquell::toolkit

namespace marquell::gallery {

/// One page at a time, with what chooses the page and the look above it.
class GalleryWindow : public QWidget {
public:
    GalleryWindow();

    /// Builds the page anew.
    void showPage(const Page& page);

    /// The user's fonts have changed: pages scale from these.
    void setFonts(const QFont& interfaceFont, const QFont& monospacedFont);

    void darkModeChanged();

    /// Without what is above the page.
    QWidget* page() const;

private:
    toolkit::Wall* makeBar();
    void applyFonts() const;

    toolkit::PopUpButtonBrick* pagePopUp_ = nullptr;
    toolkit::SwitchBrick* darkSwitch_ = nullptr;
    QScrollArea* const scrollArea_;
    const Page* page_ = nullptr;
    QFont interfaceFont_;
    QFont monospacedFont_;
};

}  // namespace marquell::gallery
