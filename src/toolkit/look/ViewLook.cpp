// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/ViewLook.h"

namespace marquell::toolkit {

QHash<const QWidget*, ViewLook>& viewLooks() {
    static QHash<const QWidget*, ViewLook> looks;
    return looks;
}

const ViewLook& lookOf(const QWidget* view) {
    static const ViewLook untold;
    const auto& looks = viewLooks();
    const auto entry = looks.constFind(view);
    return entry == looks.constEnd() ? untold : *entry;
}

ViewLook& changeLookOf(QWidget* view) {
    auto& looks = viewLooks();
    const auto entry = looks.find(view);
    if (entry != looks.end()) return *entry;
    QObject::connect(view, &QObject::destroyed, view, [view] { viewLooks().remove(view); });
    ViewLook& look = *looks.insert(view, ViewLook());
    look.view = view;
    return look;
}

}  // namespace marquell::toolkit
