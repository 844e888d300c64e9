// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/HiddenFailures.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace ardeno {

namespace {

constexpr const char *notifications = "org.freedesktop.Notifications";
constexpr const char *notificationsPath = "/org/freedesktop/Notifications";
constexpr int untilDismissed = 0;

QDBusMessage notificationCall(const char *method)
{
    return QDBusMessage::createMethodCall(notifications, notificationsPath, notifications, method);
}

} // namespace

HiddenFailures::HiddenFailures(const Messages &messages, const QDBusConnection &connection, Window window)
    : m_messages(messages), m_connection(connection), m_window(std::move(window))
{
    m_connection.connect(notifications, notificationsPath, notifications, "ActionInvoked", this,
                         SLOT(invoked(uint, QString)));
    m_connection.connect(notifications, notificationsPath, notifications, "NotificationClosed", this,
                         SLOT(closed(uint, uint)));
    m_subscriptions.watch([this] { look(); }, messages.error, messages.remarks);
}

void HiddenFailures::look()
{
    const QStringList now = m_messages.sentences();
    QStringList news = now;
    news.removeIf([this](const QString &sentence) { return m_known.contains(sentence); });
    m_known = now;
    if (m_window.isSeen()) {
        seen();
    } else if (!news.isEmpty()) {
        m_hasUnseen = true;
        m_window.mark(true);
        notify(m_messages.error() && news.contains(*m_messages.error()) ? *m_messages.error() : news.last());
    } else if (now.isEmpty()) { // It has been mended meanwhile.
        seen();
    }
}

void HiddenFailures::seen()
{
    if (!std::exchange(m_hasUnseen, false))
        return;
    m_window.mark(false);
    withdraw();
}

void HiddenFailures::notify(const QString &sentence)
{
    if (std::exchange(m_isNotifying, true)) {
        m_next = sentence;
        return;
    }
    QDBusMessage call = notificationCall("Notify");
    // A newer one takes the place of the older; servers may take the text for markup.
    call << "Ardeno" << m_notification << "org.ardeno.Ardeno" << tr("Something needs attention")
         << sentence.toHtmlEscaped() << QStringList{"default", tr("Show"), "show", tr("Show")}
         << QVariantMap{{"desktop-entry", "org.ardeno.Ardeno"}} << untilDismissed;
    auto *const pending = new QDBusPendingCallWatcher(m_connection.asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, &HiddenFailures::notified);
}

// Without such a service the window says it when it is opened.
void HiddenFailures::notified(QDBusPendingCallWatcher *call)
{
    call->deleteLater();
    m_isNotifying = false;
    const std::optional<QString> next = std::exchange(m_next, std::nullopt);
    const QDBusPendingReply<uint> reply = *call;
    if (!reply.isValid())
        return;
    m_notification = reply.value();
    if (!m_hasUnseen) // The window was quicker.
        withdraw();
    else if (next)
        notify(*next);
}

void HiddenFailures::withdraw()
{
    QDBusMessage call = notificationCall("CloseNotification");
    call << std::exchange(m_notification, 0);
    if (call.arguments().first() != 0)
        m_connection.asyncCall(call);
}

// The number is somebody else's from now on.
void HiddenFailures::closed(uint id, uint)
{
    if (id == m_notification)
        m_notification = 0;
}

void HiddenFailures::invoked(uint id, const QString &)
{
    if (id == m_notification && id != 0)
        m_window.show();
}

} // namespace ardeno
