// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/SettingsPortal.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QMetaObject>
#include <QMetaType>
#include <utility>

namespace marquell::shell {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");

/// Answers come in a variant that is within a variant, changes in a single one.
QVariant unwrapped(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

QVariant answerIn(const QDBusMessage& reply) {
    const bool answered =
        reply.type() == QDBusMessage::ReplyMessage && reply.arguments().size() == 1;
    return answered ? unwrapped(reply.arguments().constFirst()) : QVariant();
}

}  // namespace

SettingsPortal::SettingsPortal(QDBusConnection bus) : bus_(std::move(bus)) {
    bus_.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                 SLOT(settingChanged(QString, QString, QDBusVariant)));
}

void SettingsPortal::observe(const QString& space, const QString& key, Observer observer) {
    observations_.push_back({space, key, observer});
    if (!bus_.isConnected()) {
        QMetaObject::invokeMethod(
            this, [observer = std::move(observer)] { observer({}); }, Qt::QueuedConnection);
        return;
    }
    QDBusMessage question =
        QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    question << space << key;
    auto* call = new QDBusPendingCallWatcher(bus_.asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [call, observer = std::move(observer)] {
        call->deleteLater();
        observer(answerIn(call->reply()));
    });
}

void SettingsPortal::settingChanged(const QString& space, const QString& key,
                                    const QDBusVariant& value) {
    const auto observations = observations_;  // an observer may add others
    for (const Observation& each : observations) {
        if (each.space == space && each.key == key) each.observer(unwrapped(value.variant()));
    }
}

}  // namespace marquell::shell
