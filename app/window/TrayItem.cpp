// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/TrayItem.h"

#include "app/TrayHost.h"
#include "ui/theme/Symbols.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QPainter>
#include <QPixmap>

#include <optional>

namespace ardeno {

namespace {

// On any background; with a dot in this colour.
QIcon menuIcon(const std::optional<Role> &mark)
{
    QIcon icon;
    for (const int extent : {16, 22, 24, 32, 48}) {
        QPixmap pixmap(extent, extent);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        Symbols::drawBrandMark(painter, QRectF(1, 1, extent - 2, extent - 2), themeColor(Role::Brand), Qt::white);
        if (mark) {
            const qreal dot = extent * 0.45;
            painter.setPen(QPen(Qt::white, extent / 16.0));
            painter.setBrush(themeColor(*mark));
            painter.drawEllipse(QRectF(extent - dot - 1, extent - dot - 1, dot, dot));
        }
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace

TrayItem::TrayItem(const SessionRecorder &recorder, ApplicationMenu &menu, const QDBusConnection &connection)
    : m_recorder(recorder),
      m_menu(menu),
      m_connection(connection),
      m_watcher(trayHost::watcher, connection, QDBusServiceWatcher::WatchForOwnerChange)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] {
        hide(); // The next one knows nothing of it.
        look();
    });
    for (const char *const signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        m_connection.connect(trayHost::watcher, trayHost::path, trayHost::watcher, signal, this, SLOT(look()));
    m_subscriptions.watch([this] { showState(); }, recorder.recording);
    look();
}

TrayItem::~TrayItem()
{
    hide();
}

void TrayItem::look()
{
    auto *const call = new QDBusPendingCallWatcher(m_connection.asyncCall(trayHost::question()), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, &TrayItem::answered);
}

void TrayItem::answered(QDBusPendingCallWatcher *call)
{
    call->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *call;
    const bool hasHost = reply.isValid() && reply.value().variant().toBool();
    if (hasHost && !m_icon)
        show();
    else if (!hasHost)
        hide();
}

void TrayItem::show()
{
    m_iconMenu = std::make_unique<QMenu>();
    m_menu.fillTray(m_iconMenu.get());
    m_icon = std::make_unique<QSystemTrayIcon>();
    m_icon->setContextMenu(m_iconMenu.get());
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            m_menu.openWindow();
    });
    showState();
    m_icon->show();
}

void TrayItem::hide()
{
    if (m_iconMenu)
        m_iconMenu->clear(); // Else what stands for its entries outside stays behind.
    m_icon.reset();
    m_iconMenu.reset();
}

void TrayItem::setMarked(bool isMarked)
{
    m_isMarked = isMarked;
    showState();
}

void TrayItem::showState()
{
    if (!m_icon)
        return;
    const bool isRecording = m_recorder.recording();
    const auto attention = m_isMarked ? std::optional(Role::Amber) : std::nullopt;
    m_icon->setIcon(menuIcon(isRecording ? std::optional(Role::Recording) : attention));
    m_icon->setToolTip(isRecording  ? tr("Ardeno — Recording")
                       : m_isMarked ? tr("Ardeno — Something needs attention")
                                    : tr("Ardeno"));
}

} // namespace ardeno
