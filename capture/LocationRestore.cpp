// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/LocationRestore.h"

#include "support/Failure.h"

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

using WindowLayout::LocationRequest;
using WindowLayout::LocationResult;
using WindowLayout::OpenPlaces;

QString savedPath(const SavedWindow &window)
{
    return window.locationURL ? *window.locationURL : window.documentURL.value_or(QString());
}

using WindowLayout::SavedPlaces;
using Kind = PathFacts::Kind;

// A device or a pipe is nothing to open, and a relative path would mean something else in every folder.
bool canOpen(const QString &path, const SavedPlaces &places)
{
    const Kind kind = places.value(path).kind;
    return path.startsWith('/') && (kind == Kind::Folder || kind == Kind::File);
}

// A file that a file browser showed in its folder; it is not opened but pointed at.
bool isShownInFolder(const SavedWindow &window, const SavedPlaces &places)
{
    return window.locationURL && places.value(*window.locationURL).kind != Kind::Folder;
}

QString shortName(const QString &path)
{
    const QString name = path.mid(path.lastIndexOf('/') + 1);
    return name.isEmpty() ? path : name;
}

QStringList pathsOf(const QList<WindowLocation> &locations)
{
    QStringList paths;
    for (const WindowLocation &location : locations)
        paths += location.path;
    return paths;
}

// The restore of all saved places of one checkpoint.
class Locations final {
public:
    Locations(LocationRequest request, Desktop &desktop) : m_request(std::move(request)), m_desktop(desktop) {}

    QCoro::Task<LocationResult> run()
    {
        for (const SavedWindow &window : std::as_const(m_request.windows)) {
            const QString path = savedPath(window);
            if (path.isEmpty() || !m_request.allowedAppIDs.contains(window.appID))
                continue;
            if (!canOpen(path, m_request.places)) {
                const bool isSilent = m_request.places.value(path).kind == Kind::Silent;
                fail(window, path, isSilent ? "its disk did not answer" : "it no longer exists");
                continue;
            }
            if (isNew(window, path))
                co_await open(window, path);
        }
        co_return m_result;
    }

private:
    // Whether it is neither open nor has been opened by this restore.
    bool isNew(const SavedWindow &window, const QString &path)
    {
        const QString canonical = m_request.places.value(path).canonicalPath;
        const bool isOpen = window.locationURL ? m_request.open.folders.contains(canonical)
                                               : m_request.open.documentsByApp.value(window.appID).contains(canonical);
        const std::pair key(window.locationURL ? QString() : window.appID, canonical);
        if (isOpen || m_seen.contains(key))
            return false;
        m_seen.insert(key);
        return true;
    }

    QCoro::Task<void> open(SavedWindow window, QString path)
    {
        try {
            if (isShownInFolder(window, m_request.places) || !m_request.launchedAppIDs.contains(window.appID))
                co_await openWith(window, path);
            ++count(window);
            m_result.openedIDs.insert(window.id);
        } catch (const Failure &failure) {
            fail(window, path, failure.description());
        }
    }

    QCoro::Task<void> openWith(SavedWindow window, QString path)
    {
        Launcher &launcher = *m_desktop.launcher;
        const QStringList paths{path};
        if (isShownInFolder(window, m_request.places) || (window.locationURL && !launcher.isInstalled(window.appID)))
            co_await launcher.reveal(path);
        else if (launcher.isInstalled(window.appID))
            co_await launcher.openApplication(window.appID, paths);
        else
            co_await launcher.openPath(path);
    }

    void fail(const SavedWindow &window, const QString &path, const QString &reason)
    {
        m_result.failures += u"%1 (%2)"_qs.arg(shortName(path), reason);
        m_result.failedIDs.insert(window.id);
    }

    qint64 &count(const SavedWindow &window)
    {
        if (window.locationURL)
            return m_result.folders;
        return m_desktop.roles.documentViewerIDs.contains(window.appID) ? m_result.viewerDocuments : m_result.documents;
    }

    LocationRequest m_request;
    Desktop &m_desktop;
    LocationResult m_result;
    QSet<std::pair<QString, QString>> m_seen;
};

// What the windows of this moment show, as far as it is known.
class Presence final {
public:
    explicit Presence(QList<MovableWindow> live) : m_unknown(std::move(live)) {}

    bool hasWindowOf(const QString &appID) const
    {
        return std::any_of(m_unknown.begin(), m_unknown.end(),
                           [&](const MovableWindow &window) { return window.applicationID == appID; });
    }

    void addFolders(const QList<WindowLocation> &folders, const SavedPlaces &facts)
    {
        for (const WindowLocation &folder : folders) {
            m_places.folders.insert(facts.value(folder.path).canonicalPath);
            forget(folder);
        }
    }

    void addDocuments(const QString &appID, const QList<WindowLocation> &documents, const SavedPlaces &facts)
    {
        for (const WindowLocation &document : documents) {
            m_places.documentsByApp[appID].insert(facts.value(document.path).canonicalPath);
            forget(document);
        }
    }

    // With what the remaining windows name in their titles.
    OpenPlaces places(const QList<SavedWindow> &windows, const SavedPlaces &saved)
    {
        for (const SavedWindow &window : windows) {
            const QString path = savedPath(window);
            const auto names = [&](const MovableWindow &candidate) {
                return candidate.applicationID == window.appID && candidate.title.contains(shortName(path));
            };
            if (path.isEmpty() || std::none_of(m_unknown.begin(), m_unknown.end(), names))
                continue;
            const QString canonical = saved.value(path).canonicalPath;
            (window.locationURL ? m_places.folders : m_places.documentsByApp[window.appID]).insert(canonical);
        }
        return m_places;
    }

private:
    void forget(const WindowLocation &location)
    {
        m_unknown.removeIf([&](const MovableWindow &window) {
            return location.windowID ? window.windowID == *location.windowID : window.title == location.title;
        });
    }

    QList<MovableWindow> m_unknown;
    OpenPlaces m_places;
};

} // namespace

QCoro::Task<SavedPlaces> WindowLayout::savedPlaces(QList<SavedWindow> windows, Desktop &desktop)
{
    QStringList paths;
    for (const SavedWindow &window : std::as_const(windows)) {
        if (const QString path = savedPath(window); path.startsWith('/'))
            paths += path;
    }
    co_return co_await desktop.files->facts(paths);
}

QHash<QString, QStringList> WindowLayout::pathsByApp(const QList<SavedWindow> &windows, const SavedPlaces &places)
{
    QHash<QString, QStringList> paths;
    for (const SavedWindow &window : windows) {
        const QString path = savedPath(window);
        if (canOpen(path, places) && !isShownInFolder(window, places) && !paths[window.appID].contains(path))
            paths[window.appID].append(path);
    }
    return paths;
}

QCoro::Task<WindowLayout::OpenPlaces> WindowLayout::openPlaces(QList<SavedWindow> windows, SavedPlaces places,
                                                               Desktop &desktop)
{
    Presence presence(desktop.windowMover->windows());
    bool hasFolders = false;
    QSet<QString> documentApps;
    for (const SavedWindow &window : std::as_const(windows)) {
        hasFolders = hasFolders || window.locationURL;
        if (window.documentURL && presence.hasWindowOf(window.appID))
            documentApps.insert(window.appID);
    }
    if (hasFolders) {
        const QList<WindowLocation> folders = co_await desktop.fileBrowser->locations();
        const SavedPlaces facts = co_await desktop.files->facts(pathsOf(folders));
        presence.addFolders(folders, facts);
    }
    for (const QString &appID : std::as_const(documentApps)) {
        const QList<WindowLocation> documents = co_await desktop.documents->locationsOf(appID);
        const SavedPlaces facts = co_await desktop.files->facts(pathsOf(documents));
        presence.addDocuments(appID, documents, facts);
    }
    co_return presence.places(windows, places);
}

QCoro::Task<LocationResult> WindowLayout::restoreLocations(LocationRequest request, Desktop &desktop)
{
    Locations locations(std::move(request), desktop);
    co_return co_await locations.run();
}

} // namespace ardeno
