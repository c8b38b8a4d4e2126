// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MockPortal.h"

#include <sys/prctl.h>

#include <QDBusVariant>
#include <QStringList>
#include <csignal>

namespace marquell::tests {
namespace {

constexpr const char* configuration = R"(
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

const QString portalName = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString portalInterface = QStringLiteral("org.freedesktop.portal.Settings");

const QString clientName = QStringLiteral("test client");
const QString serviceName = QStringLiteral("test service");

}  // namespace

PrivateBus::PrivateBus() : client_(clientName), service_(serviceName) {
    writeFile(folder_ / "bus.conf", configuration);
    daemon_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    daemon_.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                   QStringLiteral("--config-file"), QString::fromStdString(folder_ / "bus.conf")});
    daemon_.waitForReadyRead();
    const QString address = QString::fromUtf8(daemon_.readLine()).trimmed();
    client_ = QDBusConnection::connectToBus(address, clientName);
    service_ = QDBusConnection::connectToBus(address, serviceName);
}

PrivateBus::~PrivateBus() {
    QDBusConnection::disconnectFromBus(clientName);
    QDBusConnection::disconnectFromBus(serviceName);
    daemon_.kill();
    daemon_.waitForFinished();
}

MockPortal::MockPortal(const QDBusConnection& bus) : bus_(bus) {
    bus_.registerVirtualObject(portalPath, this);
    bus_.registerService(portalName);
}

MockPortal::~MockPortal() {
    bus_.unregisterService(portalName);
    bus_.unregisterObject(portalPath);
}

void MockPortal::sendChange(const QVariantList& arguments) const {
    QDBusMessage change =
        QDBusMessage::createSignal(portalPath, portalInterface, QStringLiteral("SettingChanged"));
    change.setArguments(arguments);
    bus_.send(change);
}

bool MockPortal::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    if (message.interface() != portalInterface || message.member() != QStringLiteral("Read")) {
        return false;
    }
    if (silent) return true;
    const QVariantList question = message.arguments();
    const auto found = answers.find({question.value(0).toString(), question.value(1).toString()});
    return connection.send(found == answers.end()
                               ? message.createErrorReply(QDBusError::InvalidArgs, QString())
                               : message.createReply(found->second));
}

QString MockPortal::introspect(const QString& /*path*/) const { return {}; }

QVariant inVariants(QVariant value, int depth) {
    for (int i = 0; i < depth; ++i) value = QVariant::fromValue(QDBusVariant(value));
    return value;
}

}  // namespace marquell::tests
