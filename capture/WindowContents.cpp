// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowContents.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace ardeno {

namespace {

using WindowLayout::OpenPlaces;
using WindowLayout::SavedPlaces;

QStringList pathsOf(const QList<WindowLocation> &locations)
{
    QStringList paths;
    for (const WindowLocation &location : locations)
        paths += location.path;
    return paths;
}

// The window that shows it; absent when its title is all that is known and several have it.
std::optional<quint32> windowOf(const WindowLocation &location, const QList<MovableWindow> &live)
{
    if (location.windowID)
        return location.windowID;
    QList<MovableWindow> found = live;
    found.removeIf([&](const MovableWindow &window) { return window.title != location.title; });
    return found.size() == 1 ? std::optional(found.first().windowID) : std::nullopt;
}

// What the windows of this moment show, as far as it is known.
class Presence final {
public:
    explicit Presence(QList<MovableWindow> live) : m_unknown(live) { m_places.windows = std::move(live); }

    bool hasWindowOf(const QString &appID) const
    {
        return std::any_of(m_unknown.begin(), m_unknown.end(),
                           [&](const MovableWindow &window) { return window.applicationID == appID; });
    }

    void addFolders(const QList<WindowLocation> &folders, const SavedPlaces &facts)
    {
        for (const WindowLocation &folder : folders)
            m_places.folders.insert(known(folder, facts));
    }

    // Those that no window shows in front.
    void addHeld(const QString &appID, const QStringList &paths, const SavedPlaces &facts)
    {
        for (const QString &path : paths)
            m_places.documentsByApp[appID].insert(facts.value(path).canonicalPath);
    }

    void addDocuments(const QString &appID, const QList<WindowLocation> &documents, const SavedPlaces &facts)
    {
        for (const WindowLocation &document : documents)
            m_places.documentsByApp[appID].insert(known(document, facts));
    }

    // With what the remaining windows name in their titles.
    OpenPlaces places(const QList<SavedWindow> &windows, const SavedPlaces &saved)
    {
        for (const SavedWindow &window : windows) {
            const QString path = WindowLayout::savedPath(window);
            const auto names = [&](const MovableWindow &candidate) {
                return candidate.applicationID == window.appID &&
                       candidate.title.contains(WindowLayout::shortName(path));
            };
            if (path.isEmpty() || std::none_of(m_unknown.begin(), m_unknown.end(), names))
                continue;
            const QString canonical = saved.value(path).canonicalPath;
            (window.locationURL ? m_places.folders : m_places.documentsByApp[window.appID]).insert(canonical);
        }
        return m_places;
    }

private:
    // The canonical path; the window's title decides nothing any more.
    QString known(const WindowLocation &location, const SavedPlaces &facts)
    {
        const QString path = facts.value(location.path).canonicalPath;
        if (const auto window = windowOf(location, m_places.windows))
            m_places.placesOfWindows.insert(*window, path);
        m_unknown.removeIf([&](const MovableWindow &window) {
            return location.windowID ? window.windowID == *location.windowID : window.title == location.title;
        });
        return path;
    }

    QList<MovableWindow> m_unknown;
    OpenPlaces m_places;
};

} // namespace

QString WindowLayout::savedPath(const SavedWindow &window)
{
    return window.locationURL ? *window.locationURL : window.documentURL.value_or(QString());
}

QString WindowLayout::shortName(const QString &path)
{
    const QString name = path.mid(path.lastIndexOf('/') + 1);
    return name.isEmpty() ? path : name;
}

QCoro::Task<SavedPlaces> WindowLayout::savedPlaces(QList<SavedWindow> windows, Desktop &desktop)
{
    QStringList paths;
    for (const SavedWindow &window : std::as_const(windows)) {
        if (const QString path = savedPath(window); path.startsWith('/'))
            paths += path;
    }
    co_return co_await desktop.files->facts(paths);
}

QCoro::Task<WindowLayout::OpenPlaces> WindowLayout::openPlaces(QList<SavedWindow> windows, SavedPlaces places,
                                                               Desktop &desktop)
{
    Presence presence(desktop.windowMover->windows());
    bool hasFolders = false;
    QHash<QString, QStringList> documentsByApp;
    for (const SavedWindow &window : std::as_const(windows)) {
        hasFolders = hasFolders || window.locationURL;
        if (window.documentURL && presence.hasWindowOf(window.appID))
            documentsByApp[window.appID].append(*window.documentURL);
    }
    if (hasFolders) {
        const QList<WindowLocation> folders = co_await desktop.fileBrowser->locations();
        const SavedPlaces facts = co_await desktop.files->facts(pathsOf(folders));
        presence.addFolders(folders, facts);
    }
    for (auto saved = documentsByApp.cbegin(); saved != documentsByApp.cend(); ++saved) {
        const QList<WindowLocation> documents = co_await desktop.documents->locationsOf(saved.key());
        const SavedPlaces facts = co_await desktop.files->facts(pathsOf(documents));
        presence.addDocuments(saved.key(), documents, facts);
        const QStringList held = co_await desktop.documents->held(saved.key(), saved.value());
        presence.addHeld(saved.key(), held, places);
    }
    co_return presence.places(windows, places);
}

bool WindowLayout::WindowContents::hasQuestion(const QString &appID, const QList<MovableWindow> &live) const
{
    constexpr qint64 pause = 500; // Milliseconds before it is asked again about what it has not answered.
    const auto last = m_lastAsked.constFind(appID);
    const bool isPausing = last != m_lastAsked.cend() && last->elapsed() < pause;
    return std::any_of(live.begin(), live.end(), [&](const MovableWindow &window) {
        const auto asked = m_titles.constFind(window.windowID);
        const bool isNews = asked == m_titles.cend() || *asked != window.title;
        return window.applicationID == appID && (isNews || (!isPausing && !m_places.contains(window.windowID)));
    });
}

QCoro::Task<void> WindowLayout::WindowContents::update(QList<MovableWindow> live, QList<SavedWindow> awaited)
{
    QSet<QString> asked;
    for (const SavedWindow &window : std::as_const(awaited)) {
        if (savedPath(window).isEmpty() || asked.contains(window.appID) || !hasQuestion(window.appID, live))
            continue;
        asked.insert(window.appID);
        co_await ask(window.appID, window.locationURL.has_value(), live);
    }
}

QCoro::Task<void> WindowLayout::WindowContents::ask(QString appID, bool isFileBrowser, QList<MovableWindow> live)
{
    live.removeIf([&](const MovableWindow &window) { return window.applicationID != appID; });
    m_lastAsked[appID].start();
    QList<WindowLocation> locations;
    if (isFileBrowser)
        locations = co_await m_desktop.fileBrowser->locations();
    else
        locations = co_await m_desktop.documents->locationsOf(appID);
    const SavedPlaces facts = co_await m_desktop.files->facts(pathsOf(locations));
    for (const MovableWindow &window : std::as_const(live)) {
        m_titles.insert(window.windowID, window.title);
        m_places.remove(window.windowID);
    }
    for (const WindowLocation &location : std::as_const(locations)) {
        if (const auto window = windowOf(location, live))
            m_places.insert(*window, facts.value(location.path).canonicalPath);
    }
}

} // namespace ardeno
