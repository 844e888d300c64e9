// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11Region.h"

#include <algorithm>

namespace ardeno {

namespace {

// Appends what is left of the rectangle without the hole: at most one piece on each side.
void appendWithout(const QRect &rectangle, const QRect &hole, QList<QRect> &pieces)
{
    const QRect common = rectangle.intersected(hole);
    const int above = common.y() - rectangle.y();
    const int below = rectangle.bottom() - common.bottom();
    const int before = common.x() - rectangle.x();
    const int after = rectangle.right() - common.right();
    if (above > 0)
        pieces.append(QRect(rectangle.x(), rectangle.y(), rectangle.width(), above));
    if (before > 0)
        pieces.append(QRect(rectangle.x(), common.y(), before, common.height()));
    if (after > 0)
        pieces.append(QRect(common.right() + 1, common.y(), after, common.height()));
    if (below > 0)
        pieces.append(QRect(rectangle.x(), common.bottom() + 1, rectangle.width(), below));
}

} // namespace

void X11Region::add(const QRect &rectangle)
{
    if (rectangle.isEmpty())
        return;
    X11Region added;
    added.m_rectangles.append(rectangle);
    for (const QRect &present : std::as_const(m_rectangles))
        added.subtract(present);
    m_rectangles += added.m_rectangles;
}

void X11Region::add(const X11Region &other)
{
    for (const QRect &rectangle : other.m_rectangles)
        add(rectangle);
}

void X11Region::subtract(const QRect &rectangle)
{
    const auto touches = [&](const QRect &present) { return present.intersects(rectangle); };
    if (std::none_of(m_rectangles.cbegin(), m_rectangles.cend(), touches))
        return;
    QList<QRect> left;
    for (const QRect &present : std::as_const(m_rectangles)) {
        if (touches(present))
            appendWithout(present, rectangle, left);
        else
            left.append(present);
    }
    m_rectangles = left;
}

void X11Region::subtract(const X11Region &other)
{
    for (const QRect &rectangle : other.m_rectangles)
        subtract(rectangle);
}

X11Region X11Region::intersected(const QRect &rectangle) const
{
    X11Region common;
    for (const QRect &present : m_rectangles) {
        if (present.intersects(rectangle))
            common.m_rectangles.append(present.intersected(rectangle));
    }
    return common;
}

X11Region X11Region::intersected(const X11Region &other) const
{
    X11Region common;
    for (const QRect &rectangle : other.m_rectangles)
        common.m_rectangles += intersected(rectangle).m_rectangles;
    return common;
}

X11Region X11Region::translated(const QPoint &offset) const
{
    X11Region moved = *this;
    for (QRect &rectangle : moved.m_rectangles)
        rectangle.translate(offset);
    return moved;
}

} // namespace ardeno
