// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11Region.h"

#include <new>

namespace ardeno {

namespace {

void require(pixman_bool_t isDone)
{
    if (!isDone)
        throw std::bad_alloc();
}

QRect toRectangle(const pixman_box32_t &box)
{
    return {box.x1, box.y1, box.x2 - box.x1, box.y2 - box.y1};
}

} // namespace

X11Region &X11Region::operator=(const X11Region &other)
{
    require(pixman_region32_copy(&m_region, &other.m_region));
    return *this;
}

void X11Region::add(const QRect &rectangle)
{
    if (!rectangle.isEmpty())
        require(pixman_region32_union_rect(&m_region, &m_region, rectangle.x(), rectangle.y(),
                                           static_cast<unsigned>(rectangle.width()),
                                           static_cast<unsigned>(rectangle.height())));
}

void X11Region::add(const X11Region &other)
{
    require(pixman_region32_union(&m_region, &m_region, &other.m_region));
}

void X11Region::subtract(const X11Region &other)
{
    require(pixman_region32_subtract(&m_region, &m_region, &other.m_region));
}

X11Region X11Region::intersected(const X11Region &other) const
{
    X11Region common;
    require(pixman_region32_intersect(&common.m_region, &m_region, &other.m_region));
    return common;
}

X11Region X11Region::translated(const QPoint &offset) const
{
    X11Region moved = *this;
    pixman_region32_translate(&moved.m_region, offset.x(), offset.y());
    return moved;
}

QRect X11Region::boundingRectangle() const
{
    return toRectangle(*pixman_region32_extents(&m_region));
}

QList<QRect> X11Region::rectangles() const
{
    int count = 0;
    const pixman_box32_t *const boxes = pixman_region32_rectangles(&m_region, &count);
    QList<QRect> rectangles;
    rectangles.reserve(count);
    for (int i = 0; i < count; ++i)
        rectangles.append(toRectangle(boxes[i]));
    return rectangles;
}

} // namespace ardeno
