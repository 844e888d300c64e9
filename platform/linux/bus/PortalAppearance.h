// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/DesktopAppearance.h"

#include <QDBusVariant>
#include <QObject>
#include <QVariantMap>

namespace ardeno {

// What the desktop's settings portal tells over the session bus. Without a portal there are no wishes.
class PortalAppearance final : public QObject, public DesktopAppearance {
    Q_OBJECT

public:
    // A portal that runs is asked at once, so that the first picture is right.
    PortalAppearance();

    AppearanceWishes wishes() const override { return m_wishes; }

    void setChangeHandler(Changed changed) override { m_changed = std::move(changed); }

    // What a group of settings says; the rest stays as it was.
    static AppearanceWishes read(AppearanceWishes before, const QString &group, const QVariantMap &settings);

private Q_SLOTS:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void ask();
    void take(const AppearanceWishes &wishes);

    AppearanceWishes m_wishes;
    Changed m_changed;
};

} // namespace ardeno
