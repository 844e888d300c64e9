// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

namespace ardeno {

// Hears on the accessibility bus what has the keyboard, as screen readers do. Works while events are processed.
class FocusWatch final : public QObject {
    Q_OBJECT

public:
    FocusWatch();
    ~FocusWatch() override;

    // Of the control, row or entry that got the keyboard last.
    const QString &name() const { return m_name; }

    // Whether that is it: rows say more behind a comma.
    bool isAt(const QString &name) const { return m_name == name || m_name.startsWith(name + ','); }

    // How often the keyboard has gone anywhere.
    int count() const { return m_count; }

private Q_SLOTS: // The bus library calls slots alone.
    void changed(const QDBusMessage &message);

private:
    QDBusConnection m_bus;
    QString m_name;
    int m_count = 0;
};

} // namespace ardeno
