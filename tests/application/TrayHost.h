// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMap>
#include <QStringList>

namespace ardeno {

// A small panel: it is told of tray items, reads their menus and sends what a user chooses.
class TrayHost final : public QDBusVirtualObject {
public:
    TrayHost();
    ~TrayHost() override;
    TrayHost(const TrayHost &) = delete;
    TrayHost &operator=(const TrayHost &) = delete;

    bool hasItem() const { return !m_item.isEmpty(); }

    // The enabled and the disabled entries that can be seen, from top to bottom; "-" is a line between them.
    QStringList entries() const;
    // False when there is no such entry that could be chosen.
    bool choose(const QString &entry) const;
    QString toolTip() const;

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    struct Entry {
        int id = 0;
        QString label = {};
        bool isEnabled = true;
    };

    QList<Entry> readMenu() const;
    QVariant property(const QString &name) const;

    QDBusConnection m_connection;
    QString m_item = {}; // Its name on the bus.
};

} // namespace ardeno
