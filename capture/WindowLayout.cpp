// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowLayout.h"

#include "support/Identifiers.h"

#include <QSet>

#include <algorithm>
#include <utility>

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

SavedWindow saved(const WindowInfo &window, const Display &display, const QList<QString> &desktops)
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
    record.states = window.states;
    if (window.desktop && desktops.size() > 1) {
        record.desktop = *window.desktop;
        if (const QString name = desktops.value(*window.desktop); !name.isEmpty())
            record.desktopName = name;
    }
    return record;
}

QList<WindowLayout::DisplayEntry> entries(const QList<Display> &displays)
{
    QList<WindowLayout::DisplayEntry> list;
    for (const Display &display : displays)
        list.append({display.id, display.usableFrame});
    return list;
}

QList<SavedWindow> look(const QList<SavedApp> &apps, WindowServer &server, qint64 ownProcessID)
{
    const QSet<QString> allowedIDs = idsOf(apps);
    const QList<WindowInfo> all = server.allWindows();
    const QList<Display> displays = server.displays();
    const QList<WindowLayout::DisplayEntry> choices = entries(displays);
    const QList<QString> desktops = server.virtualDesktops();
    QList<SavedWindow> windows;
    for (const WindowInfo &window : all) {
        // What is not on screen and nobody looks after is no window that could come back.
        if (!isRecorded(window, allowedIDs, ownProcessID) || (!window.isOnScreen && !window.states))
            continue;
        if (const auto best = WindowLayout::bestDisplay(*window.frame, choices))
            windows.append(saved(window, displays[*best], desktops));
    }
    return windows;
}

// What the window may be called; empty unless it certainly shows an ordinary page that is left in.
QString publicTitle(const std::optional<ShownPage> &page, const CaptureExclusions &rules)
{
    const bool isPublic = page && std::all_of(page->addresses.begin(), page->addresses.end(),
                                              [&](const QString &address) { return rules.allowsPage(address); });
    return isPublic ? page->title : QString();
}

// With the folders and documents that they show.
QCoro::Task<QList<SavedWindow>> withLocations(QList<SavedWindow> layout, const Desktop &desktop)
{
    QSet<qint64> owners;
    bool hasFolders = false;
    for (const SavedWindow &window : std::as_const(layout)) {
        if (desktop.roles.fileBrowserIDs.contains(window.appID))
            hasFolders = true;
        else
            owners.insert(window.processID);
    }
    // Both are on their way before the first is waited for.
    std::optional<QCoro::Task<QList<WindowLocation>>> asksFolders;
    std::optional<QCoro::Task<QList<WindowLocation>>> asksDocuments;
    if (hasFolders)
        asksFolders = desktop.fileBrowser->locations();
    if (!owners.isEmpty())
        asksDocuments = desktop.documents->locations(owners);
    QList<WindowLocation> folders;
    QList<WindowLocation> documents;
    if (asksFolders)
        folders = co_await *asksFolders;
    if (asksDocuments)
        documents = co_await *asksDocuments;
    for (SavedWindow &window : layout) {
        if (desktop.roles.fileBrowserIDs.contains(window.appID))
            window.locationURL = WindowLayout::location(window, folders);
        else
            window.documentURL = WindowLayout::location(window, documents);
    }
    co_return layout;
}

} // namespace

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

QList<SavedWindow> WindowLayout::windows(const QList<SavedApp> &apps, WindowServer &server, qint64 ownProcessID)
{
    return look(apps, server, ownProcessID);
}

std::optional<QString> WindowLayout::location(const SavedWindow &window, const QList<WindowLocation> &locations)
{
    QList<WindowLocation> sameTitle;
    for (const WindowLocation &candidate : locations) {
        if (candidate.processID && *candidate.processID != window.processID)
            continue;
        if (candidate.windowID == window.windowID)
            return candidate.path;
        if (candidate.title == window.title)
            sameTitle.append(candidate);
    }
    const bool isSure = !window.title.isEmpty() && sameTitle.size() == 1 && !sameTitle.first().windowID;
    return isSure ? std::optional(sameTitle.first().path) : std::nullopt;
}

QCoro::Task<QList<SavedWindow>> WindowLayout::capture(QList<SavedApp> apps, const Desktop &desktop,
                                                      CaptureExclusions rules, qint64 ownProcessID)
{
    QList<SavedWindow> seen = look(apps, *desktop.windowServer, ownProcessID);
    const QCoro::Task<BrowserWindows> asking = desktop.tabSource->browserWindows();
    seen = co_await withLocations(seen, desktop);
    const BrowserWindows pages = co_await asking;
    for (SavedWindow &window : seen) {
        const auto page = pages.constFind(window.windowID);
        if (page != pages.cend())
            window.title = publicTitle(*page, rules);
    }
    co_return seen;
}

} // namespace ardeno
