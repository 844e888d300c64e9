// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/PopupSurface.h"

#include "ui/theme/Drawing.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QRegion>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace ardeno {

namespace {

constexpr qreal menuRadius = 10;
constexpr qreal tipRadius = 7;

// The window that the popup belongs to, and lies over.
QWidget *windowBelow(const QWidget *popup)
{
    QWidget *const parent = popup->parentWidget();
    return parent && parent->window()->isVisible() ? parent->window() : nullptr;
}

// Moved as little as possible; unchanged where it is larger than the room.
QRect within(QRect rect, const QRect &room)
{
    if (rect.width() > room.width() || rect.height() > room.height())
        return rect;
    rect.moveLeft(std::clamp(rect.left(), room.left(), room.right() - rect.width() + 1));
    rect.moveTop(std::clamp(rect.top(), room.top(), room.bottom() - rect.height() + 1));
    return rect;
}

} // namespace

PopupSurface::PopupSurface(QWidget *popup) : QObject(popup), m_popup(popup), m_isTip(popup->inherits("QTipLabel"))
{
    popup->installEventFilter(this);
}

PopupSurface &PopupSurface::of(QWidget *popup)
{
    auto *background = popup->findChild<PopupSurface *>({}, Qt::FindDirectChildrenOnly);
    return background ? *background : *new PopupSurface(popup);
}

int PopupSurface::margin() const
{
    return m_isTip ? tipMargin : menuMargin;
}

void PopupSurface::place()
{
    const QWidget *const below = windowBelow(m_popup);
    const QRect asked = m_popup->geometry().translated(-margin(), m_isTip ? 0 : -margin());
    QRect room = m_popup->screen()->availableGeometry().marginsAdded(QMargins() + margin());
    // Another program's windows are not painted below the shadow, so the popup stays within its own.
    if (below && below->width() >= asked.width() && below->height() >= asked.height())
        room = QRect(below->mapToGlobal(QPoint()), below->size()).intersected(room);
    m_isPlacing = true;
    m_popup->move(within(asked, room).topLeft());
    m_isPlacing = false;
}

void PopupSurface::takeBackdrop()
{
    QWidget *const below = windowBelow(m_popup);
    const QRect area = below ? QRect(below->mapFromGlobal(m_popup->pos()), m_popup->size()) : QRect();
    const bool isCovered = below && below->rect().contains(area);
    m_backdrop = isCovered ? below->grab(area) : QPixmap();
    if (isCovered) {
        m_popup->clearMask();
    } else {
        QPainterPath outline;
        outline.addRoundedRect(m_popup->rect() - (QMargins() + margin()), 6, 6);
        m_popup->setMask(QRegion(outline.toFillPolygon().toPolygon()));
    }
    m_popup->update();
}

bool PopupSurface::eventFilter(QObject *watched, QEvent *event)
{
    const bool isMove = event->type() == QEvent::Move && m_popup->isVisible();
    const bool isResize = event->type() == QEvent::Resize && m_popup->isVisible();
    if (!m_isPlacing && (event->type() == QEvent::Show || (m_isTip && (isMove || isResize)))) {
        if (!isResize)
            place();
        takeBackdrop();
    }
    return QObject::eventFilter(watched, event);
}

void PopupSurface::paint(QPainter &painter) const
{
    const QRect panel = m_popup->rect() - (QMargins() + margin());
    const qreal radius = m_isTip ? tipRadius : menuRadius;
    if (m_backdrop.isNull()) {
        painter.fillRect(m_popup->rect(), themeColor(Role::Card));
        Drawing::panel(painter, panel, 6, themeColor(Role::Card), themeColor(Role::Line));
        return;
    }
    painter.drawPixmap(0, 0, m_backdrop);
    Drawing::softShadow(painter, panel, radius, margin());
    Drawing::panel(painter, panel, radius, themeColor(Role::Card), themeColor(Role::Line));
}

} // namespace ardeno
