#include "ui/DesktopScheme.h"

#include "platform/Literals.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QFile>

namespace {

constexpr auto Service = "org.freedesktop.portal.Desktop"_L1;
constexpr auto Path = "/org/freedesktop/portal/desktop"_L1;
constexpr auto Settings = "org.freedesktop.portal.Settings"_L1;
constexpr auto Group = "org.freedesktop.appearance"_L1;
constexpr auto Key = "color-scheme"_L1;
constexpr int Patience = 100; // ms

// Asking for a bus that does not run would start one.
bool hasSessionBus()
{
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus"_L1);
}

}

DesktopScheme::DesktopScheme(QObject* parent) : QObject(parent)
{
    if (!hasSessionBus()) return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    // Signals of the bus know receivers by name only.
    bus.connect(Service, Path, Settings, u"SettingChanged"_s, this, SLOT(settingChanged(QDBusMessage)));
    if (!bus.interface()->isServiceRegistered(Service)) return;
    QDBusMessage question = QDBusMessage::createMethodCall(Service, Path, Settings, u"Read"_s);
    question << QString(Group) << QString(Key);
    const QDBusMessage answer = bus.call(question, QDBus::Block, Patience);
    if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty())
        take(answer.arguments().constFirst());
}

void DesktopScheme::settingChanged(const QDBusMessage& message)
{
    const QVariantList arguments = message.arguments();
    if (arguments.size() != 3 || arguments[0].toString() != Group || arguments[1].toString() != Key) return;
    const QString before = m_scheme;
    take(arguments[2]);
    if (m_scheme != before) emit changed();
}

void DesktopScheme::take(const QVariant& value)
{
    QVariant bare = value;
    while (bare.metaType() == QMetaType::fromType<QDBusVariant>()) bare = bare.value<QDBusVariant>().variant();
    const uint wish = bare.toUInt();
    m_scheme = wish == 1 ? u"dark"_s : wish == 2 ? u"light"_s : QString();
}
