// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Applications.h"
#include "ui/theme/AppTheme.h"

#include <QHash>
#include <QIcon>
#include <QPainter>

namespace ardeno {

// The icons of applications, from the desktop's theme.
class ApplicationIcons final {
public:
    explicit ApplicationIcons(Applications &applications) : m_applications(applications) {}

    // The symbol takes the place of an icon that does not exist.
    void draw(QPainter &painter, const QRectF &square, const QString &appID, const QString &symbol);

private:
    const QIcon &icon(const QString &appID);

    Applications &m_applications;
    QString m_theme = {}; // That the icons are from.
    QHash<QString, QIcon> m_icons = {};
};

} // namespace ardeno
