// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/Surface.h"

#include <QApplication>
#include <QToolTip>

#include "toolkit/look/ViewLook.h"

namespace marquell::toolkit {
namespace {

Surface systemSurfaceInForce = Surface::light;

Surface surfaceOf(Appearance appearance) {
    switch (appearance) {
        case Appearance::light:
            return Surface::light;
        case Appearance::dark:
            return Surface::dark;
        case Appearance::column:
            return Surface::column;
        case Appearance::system:
            break;
    }
    return systemSurfaceInForce;
}

}  // namespace

Surface systemSurface() { return systemSurfaceInForce; }

void setSystemDark(bool dark) {
    systemSurfaceInForce = dark ? Surface::dark : Surface::light;
    const QPalette palette = paletteOf(systemSurfaceInForce);
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    // Views are told by a posted event; what asks for colours until then would be half dark.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationPaletteChange);
    const auto looks = viewLooks();  // a view may react by telling another one its look
    for (const ViewLook& look : looks) {
        const bool follows = look.appearance == Appearance::system;
        if (follows && viewLooks().contains(look.view)) look.view->setPalette(palette);
    }
}

void setAppearance(QWidget* view, Appearance appearance) {
    changeLookOf(view).appearance = appearance;
    view->setPalette(paletteOf(surfaceOf(appearance)));
}

Surface surfaceOf(const QWidget* view) {
    for (; view != nullptr; view = view->parentWidget()) {
        if (const auto appearance = lookOf(view).appearance) return surfaceOf(*appearance);
        if (view->isWindow()) break;
    }
    return systemSurfaceInForce;
}

}  // namespace marquell::toolkit
