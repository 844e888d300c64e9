// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/documents/DocumentLocator.h"

#include "platform/linux/documents/DocumentServices.h"
#include "platform/linux/documents/WindowTitles.h"
#include "platform/linux/files/PathEntry.h"
#include "platform/linux/files/PathText.h"
#include "platform/linux/running/OpenFiles.h"
#include "platform/linux/running/ProcessFacts.h"

#include <QDateTime>
#include <QDir>

#include <algorithm>
#include <chrono>
#include <optional>

namespace ardeno {

namespace {

constexpr std::chrono::milliseconds locatorPatience(200);

std::optional<QString> onlyOne(const QStringList &paths)
{
    return paths.size() == 1 ? std::optional(paths.first()) : std::nullopt;
}

QStringList namedIn(const LiveWindow &window, QStringList paths)
{
    paths.removeIf([&](const QString &path) {
        return !WindowTitles::namesFile(window.title, PathText::baseName(path), window.applicationName);
    });
    paths.removeDuplicates();
    return paths;
}

QStringList filesInTitle(const LiveWindow &window)
{
    QStringList paths = WindowTitles::paths(window.title, window.applicationName, QDir::homePath());
    paths.removeIf([](const QString &path) { return !PathText::isFile(path); });
    return paths;
}

} // namespace

// What is known of one process; read when it is first needed.
class DocumentLocator::Process final {
public:
    Process(const DocumentLocator &locator, const QList<LiveWindow> &windows)
        : m_locator(locator),
          m_windows(windows),
          m_processID(windows.first().processID.value_or(0)),
          m_open(OpenFiles::of(m_processID))
    {
    }

    // Titles of terminals are written by the programs in them.
    bool hasDocuments() const { return !m_open.runsTerminal; }

    std::optional<QString> document(const LiveWindow &window)
    {
        // What a title says may come from anywhere: a page, a mail, somebody who writes to the user.
        if (QStringList told = filesInTitle(window); !told.isEmpty()) {
            told.removeIf([&](const QString &path) { return !isWitnessed(path, window); });
            return onlyOne(told);
        }
        // Two files of one name may be open, and only one of them be known.
        if (isTwice(window))
            return std::nullopt;
        return namedDocument(window);
    }

private:
    // Whether something else than a title says that the process has the file.
    bool isWitnessed(const QString &path, const LiveWindow &window)
    {
        const QString real = PathEntry::of(path).facts.canonicalPath;
        const auto isIt = [&](const QString &other) {
            return other == path || PathEntry::of(other).facts.canonicalPath == real;
        };
        const auto holdsIt = [&](const QStringList &paths) { return std::any_of(paths.begin(), paths.end(), isIt); };
        return m_open.holds(path) || holdsIt(m_open.files) || holdsIt(startedWith()) || holdsIt(recentlyUsed()) ||
               holdsIt(m_locator.m_accessible.documents(m_processID, window.title));
    }

    std::optional<QString> namedDocument(const LiveWindow &window)
    {
        const QStringList open = namedIn(window, m_open.files);
        if (open.size() == 1)
            return open.first();
        if (DocumentServices::answers(window.applicationID)) {
            if (const auto path = askedFor(window))
                return path;
        }
        if (!open.isEmpty())
            return std::nullopt;
        const QStringList used = namedIn(window, startedWith() + recentlyUsed());
        if (!used.isEmpty())
            return onlyOne(used);
        if (!WindowTitles::looksLikeFile(window.title))
            return std::nullopt;
        return onlyOne(namedIn(window, m_locator.m_accessible.documents(m_processID, window.title)));
    }

    bool isTwice(const LiveWindow &window) const
    {
        return std::count_if(m_windows.begin(), m_windows.end(), [&](const LiveWindow &other) {
                   return !other.isDialog && other.title == window.title;
               }) > 1;
    }

    // What the application itself says: its only document, or the one that the title names.
    std::optional<QString> askedFor(const LiveWindow &window)
    {
        if (!m_told)
            m_told = DocumentServices::documents(m_locator.m_session.bus(), window.applicationID, m_processID,
                                                 m_open.files + startedWith() + recentlyUsed());
        const auto isMain = [](const LiveWindow &candidate) { return !candidate.isDialog; };
        if (m_told->size() == 1 && std::count_if(m_windows.begin(), m_windows.end(), isMain) == 1)
            return m_told->first();
        return onlyOne(namedIn(window, *m_told));
    }

    const QStringList &startedWith()
    {
        if (!m_startedWith) {
            m_startedWith = ProcessFacts(static_cast<qint32>(m_processID)).pathArguments();
            m_startedWith->removeIf([](const QString &path) { return !PathText::isFile(path); });
        }
        return *m_startedWith;
    }

    // What this application has used since it was started.
    const QStringList &recentlyUsed()
    {
        if (m_recentlyUsed)
            return *m_recentlyUsed;
        constexpr double slack = 3; // Seconds; both times are rounded.
        const auto start = ProcessFacts(static_cast<qint32>(m_processID)).startTime();
        m_recentlyUsed = QStringList();
        for (const RecentDocument &document : m_locator.recentDocuments()) {
            const bool isLater = start && Date::fromDateTime(document.lastUsed).seconds >= start->seconds - slack;
            if (isLater && isUser(document) && PathText::isFile(document.path))
                m_recentlyUsed->append(document.path);
        }
        return *m_recentlyUsed;
    }

    bool isUser(const RecentDocument &document) const
    {
        const LiveWindow &window = m_windows.first();
        const QString program = PathText::baseName(ProcessFacts(static_cast<qint32>(m_processID)).program());
        const QStringList names = {window.applicationID, window.applicationName, program,
                                   window.applicationID.section('.', -1)};
        return std::any_of(names.begin(), names.end(), [&](const QString &name) {
            return !name.isEmpty() && document.applications.contains(name, Qt::CaseInsensitive);
        });
    }

    const DocumentLocator &m_locator;
    const QList<LiveWindow> &m_windows;
    qint64 m_processID;
    OpenFiles m_open;
    std::optional<QStringList> m_told = {};
    std::optional<QStringList> m_startedWith = {};
    std::optional<QStringList> m_recentlyUsed = {};
};

DocumentLocator::DocumentLocator() : m_session(locatorPatience), m_accessible(m_session) {}

const QList<RecentDocument> &DocumentLocator::recentDocuments() const
{
    std::call_once(m_readRecent, [this] { m_recent = RecentDocuments::read(); });
    return m_recent;
}

QList<WindowLocation> DocumentLocator::locations(const QList<LiveWindow> &windows) const
{
    QList<WindowLocation> found;
    if (windows.isEmpty())
        return found;
    Process process(*this, windows);
    if (!process.hasDocuments())
        return found;
    for (const LiveWindow &window : windows) {
        if (window.isDialog || window.title.isEmpty())
            continue;
        if (const auto path = process.document(window))
            found.append({window.title, *path, window.windowID, window.processID});
    }
    return found;
}

} // namespace ardeno
