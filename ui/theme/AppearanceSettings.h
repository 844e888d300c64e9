// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/theme/AppTheme.h"

#include <QDBusVariant>
#include <QObject>
#include <QVariantMap>

namespace ardeno {

// Follows what the user set for all applications, as the desktop's settings portal tells it over the session bus.
// Without a portal the desktop's palette decides between light and dark.
class AppearanceSettings final : public QObject {
    Q_OBJECT

public:
    // Gives the theme its first appearance. A portal that runs is asked at once, so that the first picture is right;
    // one that has yet to start is not waited for.
    AppearanceSettings();

    // What a group of settings says; the rest stays as it was.
    static Appearance read(Appearance before, const QString &group, const QVariantMap &settings);

private Q_SLOTS:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void ask();
    void apply(const Appearance &appearance);

    Appearance m_appearance;
};

} // namespace ardeno
