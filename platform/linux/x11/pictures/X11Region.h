// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

namespace ardeno {

// An area of pixels, as rectangles that do not overlap.
class X11Region final {
public:
    X11Region() = default;

    X11Region(const QRect &rectangle) { add(rectangle); } // NOLINT: a rectangle is a region.

    void add(const QRect &rectangle);
    void add(const X11Region &other);
    void subtract(const QRect &rectangle);
    void subtract(const X11Region &other);
    X11Region intersected(const QRect &rectangle) const;
    X11Region intersected(const X11Region &other) const;
    X11Region translated(const QPoint &offset) const;

    bool isEmpty() const { return m_rectangles.isEmpty(); }

    const QList<QRect> &rectangles() const { return m_rectangles; }

private:
    QList<QRect> m_rectangles = {};
};

} // namespace ardeno
