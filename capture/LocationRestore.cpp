// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/LocationRestore.h"

#include "support/Failure.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

using WindowLayout::LocationRequest;
using WindowLayout::LocationResult;
using WindowLayout::savedPath;
using WindowLayout::SavedPlaces;
using WindowLayout::shortName;
using Kind = PathFacts::Kind;

struct LocationTexts final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::LocationTexts)
};

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
                fail(window, path,
                     isSilent ? LocationTexts::tr("its disk did not answer")
                              : LocationTexts::tr("it no longer exists"));
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
        const bool isToOpen =
            isShownInFolder(window, m_request.places) || !m_request.launchedAppIDs.contains(window.appID);
        m_request.control.awaits(shortName(path));
        if (isToOpen && m_request.control.isStopped()) {
            fail(window, path, ResumeControl::reason());
            co_return;
        }
        try {
            if (isToOpen)
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

} // namespace

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

QCoro::Task<LocationResult> WindowLayout::restoreLocations(LocationRequest request, Desktop &desktop)
{
    Locations locations(std::move(request), desktop);
    co_return co_await locations.run();
}

} // namespace ardeno
