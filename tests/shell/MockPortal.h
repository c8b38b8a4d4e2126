// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QString>
#include <QVariant>
#include <map>
#include <utility>

#include "platform/Surroundings.h"

namespace marquell::tests {

/// A message bus of the test's own, which starts no services.
class PrivateBus {
public:
    PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus();

    /// Two connections, as that of a program and that of the portal.
    QDBusConnection client() const { return client_; }
    QDBusConnection service() const { return service_; }

private:
    TemporaryFolder folder_;
    QProcess daemon_;
    QDBusConnection client_;
    QDBusConnection service_;
};

/// A portal that answers what a test gives it, whatever that is.
class MockPortal : public QDBusVirtualObject {
public:
    explicit MockPortal(const QDBusConnection& bus);
    MockPortal(const MockPortal&) = delete;
    MockPortal& operator=(const MockPortal&) = delete;
    ~MockPortal() override;

    /// The arguments of the answer for a setting. Without any at all it answers with an error.
    std::map<std::pair<QString, QString>, QVariantList> answers;
    bool silent = false;

    void sendChange(const QVariantList& arguments) const;

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    QString introspect(const QString& path) const override;

private:
    QDBusConnection bus_;
};

/// The value within so many variants.
QVariant inVariants(QVariant value, int depth);

}  // namespace marquell::tests
