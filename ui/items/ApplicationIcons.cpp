// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/items/ApplicationIcons.h"

#include "ui/theme/Symbols.h"

#include <QDir>

namespace ardeno {

const QIcon &ApplicationIcons::icon(const QString &appID)
{
    if (m_theme != QIcon::themeName()) {
        m_theme = QIcon::themeName();
        m_icons.clear();
    }
    const auto known = m_icons.constFind(appID);
    if (known != m_icons.constEnd())
        return *known;
    const QString name = m_applications.iconName(appID);
    const QIcon found = name.isEmpty() ? QIcon() : QDir::isAbsolutePath(name) ? QIcon(name) : QIcon::fromTheme(name);
    return *m_icons.insert(appID, found);
}

void ApplicationIcons::draw(QPainter &painter, const QRectF &square, const QString &appID, const QString &symbol)
{
    const QIcon &found = icon(appID);
    const QRect place = square.toAlignedRect();
    // An icon may be named and still have no picture.
    if (!found.isNull() && !found.actualSize(place.size()).isEmpty())
        found.paint(&painter, place);
    else
        Symbols::draw(painter, symbol, square, themeColor(Role::Dim));
}

} // namespace ardeno
