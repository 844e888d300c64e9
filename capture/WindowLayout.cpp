// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowLayout.h"

#include <QSet>

#include <algorithm>

namespace ardeno {

namespace {

// In points; smaller windows are no part of a layout.
constexpr double smallestWidth = 100;
constexpr double smallestHeight = 60;

double sharedArea(const WindowRect &a, const WindowRect &b)
{
    const double width = std::min(a.maxX(), b.maxX()) - std::max(a.x, b.x);
    const double height = std::min(a.maxY(), b.maxY()) - std::max(a.y, b.y);
    return width > 0 && height > 0 ? width * height : 0;
}

bool isRecorded(const WindowInfo &window, const QSet<QString> &allowedIDs, qint64 ownProcessID)
{
    return window.processID && *window.processID != ownProcessID && window.applicationID &&
           allowedIDs.contains(*window.applicationID) && window.isNormalLayer && window.frame &&
           window.frame->width >= smallestWidth && window.frame->height >= smallestHeight && window.windowID != 0;
}

SavedWindow saved(const WindowInfo &window, const Display &display)
{
    SavedWindow record;
    record.appID = *window.applicationID;
    record.appName = window.applicationName.isEmpty() ? record.appID : window.applicationName;
    record.title = window.title;
    record.frame = *window.frame;
    record.displayID = display.id;
    record.displayFrame = display.usableFrame;
    record.windowID = window.windowID;
    record.processID = *window.processID;
    if (!display.name.isEmpty())
        record.displayName = display.name;
    return record;
}

QList<WindowLayout::DisplayEntry> entries(const QList<Display> &displays)
{
    QList<WindowLayout::DisplayEntry> list;
    for (const Display &display : displays)
        list.append({display.id, display.usableFrame});
    return list;
}

} // namespace

QList<WindowLayout::DisplayEntry> WindowLayout::currentDisplays(WindowServer &server)
{
    return entries(server.displays());
}

std::optional<qsizetype> WindowLayout::bestDisplay(const WindowRect &frame, const QList<DisplayEntry> &displays)
{
    if (displays.isEmpty())
        return std::nullopt;
    qsizetype best = 0;
    for (qsizetype i = 1; i < displays.size(); ++i) {
        if (sharedArea(frame, displays[i].usableFrame) > sharedArea(frame, displays[best].usableFrame))
            best = i;
    }
    return best;
}

QList<SavedWindow> WindowLayout::capture(const QList<SavedApp> &apps, WindowServer &server, qint64 ownProcessID)
{
    QSet<QString> allowedIDs;
    for (const SavedApp &app : apps)
        allowedIDs.insert(app.id);
    const QList<WindowInfo> windows = server.windows();
    const QList<Display> displays = server.displays();
    const QList<DisplayEntry> choices = entries(displays);
    QList<SavedWindow> layout;
    for (const WindowInfo &window : windows) {
        if (!isRecorded(window, allowedIDs, ownProcessID))
            continue;
        if (const auto best = bestDisplay(*window.frame, choices))
            layout.append(saved(window, displays[*best]));
    }
    return layout;
}

} // namespace ardeno
