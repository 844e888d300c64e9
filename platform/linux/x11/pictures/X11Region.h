// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

#include <pixman.h>

namespace ardeno {

// An area of pixels.
class X11Region final {
public:
    X11Region() { pixman_region32_init(&m_region); }

    X11Region(const QRect &rectangle) : X11Region() { add(rectangle); } // NOLINT: a rectangle is a region.

    X11Region(const X11Region &other) : X11Region() { *this = other; }

    X11Region &operator=(const X11Region &other);

    ~X11Region() { pixman_region32_fini(&m_region); }

    // Each throws std::bad_alloc.
    void add(const QRect &rectangle);
    void add(const X11Region &other);
    void subtract(const X11Region &other);
    X11Region intersected(const X11Region &other) const;
    X11Region translated(const QPoint &offset) const;

    bool isEmpty() const { return !pixman_region32_not_empty(&m_region); }

    QRect boundingRectangle() const;
    // They do not overlap.
    QList<QRect> rectangles() const;

private:
    pixman_region32_t m_region;
};

} // namespace ardeno
