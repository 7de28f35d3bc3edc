#include "platform/qt/session_idle_time.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>
#include <QDateTime>

namespace hourwright::platform {

namespace {

constexpr int patience = 200; // milliseconds; the window waits for the answer

std::optional<std::chrono::seconds> ofScreenSaver() {
    QDBusInterface saver("org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver", "org.freedesktop.ScreenSaver",
                         QDBusConnection::sessionBus());
    saver.setTimeout(patience);
    if (!saver.isValid())
        return std::nullopt;
    const QDBusReply<quint32> milliseconds = saver.call("GetSessionIdleTime");
    if (!milliseconds.isValid())
        return std::nullopt;
    return std::chrono::seconds(milliseconds.value() / 1000);
}

// The login manager says since when, in microseconds of 1970.
std::optional<std::chrono::seconds> ofLoginManager() {
    QDBusInterface session("org.freedesktop.login1", "/org/freedesktop/login1/session/auto",
                           "org.freedesktop.login1.Session", QDBusConnection::systemBus());
    session.setTimeout(patience);
    if (!session.isValid())
        return std::nullopt;
    if (!session.property("IdleHint").toBool())
        return std::chrono::seconds(0);
    const auto since = static_cast<qint64>(session.property("IdleSinceHint").toULongLong() / 1000);
    return std::chrono::seconds((QDateTime::currentMSecsSinceEpoch() - since) / 1000);
}

} // namespace

std::optional<std::chrono::seconds> SessionIdleTime::read() {
    if (const auto idle = ofScreenSaver())
        return idle;
    return ofLoginManager();
}

} // namespace hourwright::platform
