// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11Placement.h"

#include "platform/linux/x11/windows/X11Property.h"

#include <algorithm>
#include <cmath>

namespace ardeno {

namespace {

// Bits of the first value, and where the values stand.
constexpr quint32 hasSmallestSize = 1 << 4;
constexpr quint32 hasLargestSize = 1 << 5;
constexpr quint32 hasSteps = 1 << 6;
constexpr qsizetype smallestAt = 5;
constexpr qsizetype largestAt = 7;
constexpr qsizetype stepsAt = 9;

constexpr double largestSize = 65535; // What a window can have at all.
constexpr double mostDistant = 32767; // What a position can be at all.

// A value that makes sense as a size: some applications leave zeros or worse.
double sizeAt(const QList<quint32> &values, qsizetype index, double otherwise)
{
    const auto value = static_cast<qint32>(values.value(index));
    return value > 0 && value <= largestSize ? value : otherwise;
}

X11Surroundings surroundings(X11Property property)
{
    const QList<quint32> values = property.cardinals();
    if (values.size() < 4)
        return {};
    return {double(values[0]), double(values[1]), double(values[2]), double(values[3])};
}

quint32 clientSize(double frameSize, double around, double smallest, double largest)
{
    // Where an application contradicts itself, the smallest size wins, as it does with window managers.
    const double size = std::max(std::min(std::round(frameSize - around), largest), smallest);
    return static_cast<quint32>(std::clamp(size, 1.0, largestSize));
}

qint32 position(double place)
{
    return static_cast<qint32>(std::clamp(std::round(place), -mostDistant, mostDistant));
}

} // namespace

X11SizeHints X11SizeHints::fromProperty(const QList<quint32> &values)
{
    X11SizeHints hints;
    const quint32 flags = values.value(0);
    if (flags & hasSmallestSize) {
        hints.smallestWidth = sizeAt(values, smallestAt, hints.smallestWidth);
        hints.smallestHeight = sizeAt(values, smallestAt + 1, hints.smallestHeight);
    }
    if (flags & hasLargestSize) {
        hints.largestWidth = sizeAt(values, largestAt, hints.largestWidth);
        hints.largestHeight = sizeAt(values, largestAt + 1, hints.largestHeight);
    }
    if (flags & hasSteps) {
        hints.widthStep = sizeAt(values, stepsAt, hints.widthStep);
        hints.heightStep = sizeAt(values, stepsAt + 1, hints.heightStep);
    }
    return hints;
}

X11Placement::X11Placement(const WindowMove &move, const X11Surroundings &decoration, const X11Surroundings &shadow,
                           const X11SizeHints &hints)
    : m_window(move.windowID),
      m_asked(move.frame),
      m_x(position(move.frame.x - shadow.left)),
      m_y(position(move.frame.y - shadow.top)),
      m_widthTolerance(std::max(1.0, hints.widthStep - 1)),
      m_heightTolerance(std::max(1.0, hints.heightStep - 1))
{
    const double aroundWidth = decoration.left + decoration.right - shadow.left - shadow.right;
    const double aroundHeight = decoration.top + decoration.bottom - shadow.top - shadow.bottom;
    m_width = clientSize(move.frame.width, aroundWidth, hints.smallestWidth, hints.largestWidth);
    m_height = clientSize(move.frame.height, aroundHeight, hints.smallestHeight, hints.largestHeight);
    m_frame = {move.frame.x, move.frame.y, m_width + aroundWidth, m_height + aroundHeight};
}

X11Placement X11Placement::of(const X11Connection &connection, const WindowMove &move)
{
    const auto window = static_cast<xcb_window_t>(move.windowID);
    X11Property decoration(connection, window, X11Atom::NetFrameExtents);
    X11Property shadow(connection, window, X11Atom::GtkFrameExtents);
    X11Property hints(connection, window, xcb_atom_t(XCB_ATOM_WM_NORMAL_HINTS));
    return {move, surroundings(std::move(decoration)), surroundings(std::move(shadow)),
            X11SizeHints::fromProperty(hints.cardinals())};
}

bool X11Placement::isSizeReached(const WindowRect &frame) const
{
    const bool isAsked = std::abs(frame.width - m_asked.width) <= 1 && std::abs(frame.height - m_asked.height) <= 1;
    return isAsked || (std::abs(frame.width - m_frame.width) <= m_widthTolerance &&
                       std::abs(frame.height - m_frame.height) <= m_heightTolerance);
}

bool X11Placement::isReached(const WindowRect &frame) const
{
    return isSizeReached(frame) && std::abs(frame.x - m_frame.x) <= 1 && std::abs(frame.y - m_frame.y) <= 1;
}

} // namespace ardeno
