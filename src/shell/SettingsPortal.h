// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QVariant>
#include <functional>
#include <vector>

class QDBusMessage;

namespace marquell::shell {

/// The desktop's settings, by its portal (org.freedesktop.portal.Settings). Without a bus, without
/// a portal, or with one that answers nonsense or not at all, settings just have no value. Main
/// thread only, where it calls observers too, which must not end it.
class SettingsPortal : public QObject {
    Q_OBJECT

public:
    /// `value` is as the portal sent it, taken out of its variants; invalid if there is none.
    using Observer = std::function<void(const QVariant& value)>;

    explicit SettingsPortal(QDBusConnection bus);

    /// Asks for the setting's value, and calls the observer with the answer, never at once and
    /// however late it comes; and from now on with the new value at each change.
    void observe(const QString& space, const QString& key, Observer observer);

private:
    Q_SLOT void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

    struct Observation {
        QString space;
        QString key;
        Observer observer;
    };

    QDBusConnection bus_;
    std::vector<Observation> observations_;
};

}  // namespace marquell::shell
