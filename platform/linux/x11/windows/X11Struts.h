// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <QList>

namespace ardeno {

// A strip along an edge of the screen that a panel or dock keeps for itself.
struct X11Strut {
    enum class Edge { Left, Right, Top, Bottom };

    Edge edge = Edge::Left;
    WindowRect area = {};

    bool operator==(const X11Strut &) const = default;
};

QList<X11Strut> readStruts(const X11Connection &connection, const WindowRect &screen);

// What the strips leave of a monitor. A strip is counted from the edge of the whole screen, so one that belongs to a
// monitor further in covers the outer ones entirely: it takes nothing from those.
WindowRect usableFrame(const WindowRect &monitor, const QList<X11Strut> &struts);

} // namespace ardeno
