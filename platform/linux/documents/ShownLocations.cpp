// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/documents/ShownLocations.h"

#include "platform/linux/documents/DocumentLocator.h"
#include "platform/linux/documents/FileManagers.h"
#include "platform/linux/files/SlowWork.h"
#include "platform/linux/running/OpenFiles.h"

#include <QMap>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace ardeno {

namespace {

constexpr std::chrono::milliseconds longestAnswer(1000);

// The windows of several processes, taken one process at a time by several workers; what they have found is there
// even when one of them never ends.
class DocumentSearch final {
public:
    explicit DocumentSearch(QList<QList<LiveWindow>> processes) : m_left(std::move(processes)) {}

    // Returns when no process is left.
    bool work()
    {
        for (QList<LiveWindow> windows = next(); !windows.isEmpty(); windows = next()) {
            const QList<WindowLocation> found = m_locator.locations(windows);
            const std::lock_guard lock(m_mutex);
            m_found += found;
        }
        return true;
    }

    QList<WindowLocation> found()
    {
        const std::lock_guard lock(m_mutex);
        m_left.clear(); // Nobody waits for the rest any more.
        return m_found;
    }

private:
    QList<LiveWindow> next()
    {
        const std::lock_guard lock(m_mutex);
        return m_left.isEmpty() ? QList<LiveWindow>() : m_left.takeFirst();
    }

    DocumentLocator m_locator;
    std::mutex m_mutex;
    QList<QList<LiveWindow>> m_left;
    QList<WindowLocation> m_found;
};

QCoro::Task<QList<WindowLocation>> findDocuments(QList<LiveWindow> windows)
{
    constexpr qsizetype mostWorkers = 4;
    QMap<qint64, QList<LiveWindow>> byProcess;
    for (const LiveWindow &window : windows)
        byProcess[window.processID.value_or(0)].append(window);
    const auto search = std::make_shared<DocumentSearch>(byProcess.values());
    const auto work = [search] { return search->work(); };
    std::vector<QCoro::Task<bool>> workers;
    for (qsizetype i = 0; i < std::min(byProcess.size(), mostWorkers); ++i)
        workers.push_back(SlowWork::withinDeadline(work, longestAnswer, SlowWork::Kind::Documents));
    for (QCoro::Task<bool> &worker : workers) {
        try {
            co_await worker;
        } catch (const Failure &) {
            // Somebody did not answer in time; the others did.
        }
    }
    co_return search->found();
}

QCoro::Task<QList<WindowLocation>> findFolders(QList<LiveWindow> windows)
{
    const auto work = [windows] { return FileManagers::locations(windows); };
    try {
        co_return co_await SlowWork::withinDeadline(work, longestAnswer, SlowWork::Kind::Folders);
    } catch (const Failure &) {
        co_return {};
    }
}

} // namespace

LinuxFileBrowser::LinuxFileBrowser(LiveWindowList windows, QStringList fileBrowserIDs)
    : m_windows(std::move(windows)), m_fileBrowserIDs(std::move(fileBrowserIDs))
{
}

QCoro::Task<QList<WindowLocation>> LinuxFileBrowser::locations()
{
    QList<LiveWindow> windows = m_windows().value_or(QList<LiveWindow>());
    windows.removeIf([this](const LiveWindow &window) {
        return !m_fileBrowserIDs.contains(window.applicationID) || window.isDialog || !window.processID;
    });
    if (windows.isEmpty())
        co_return {};
    co_return co_await findFolders(windows);
}

LinuxDocuments::LinuxDocuments(LiveWindowList windows, QStringList fileBrowserIDs)
    : m_windows(std::move(windows)), m_fileBrowserIDs(std::move(fileBrowserIDs))
{
}

QList<LiveWindow> LinuxDocuments::documentWindows() const
{
    QList<LiveWindow> windows = m_windows().value_or(QList<LiveWindow>());
    windows.removeIf([this](const LiveWindow &window) {
        return m_fileBrowserIDs.contains(window.applicationID) || window.isBrowser || window.isMailProgram ||
               !window.processID;
    });
    return windows;
}

QCoro::Task<QStringList> LinuxDocuments::held(QString applicationID, QStringList paths)
{
    QSet<qint64> processIDs;
    for (const LiveWindow &window : documentWindows()) {
        if (window.applicationID == applicationID)
            processIDs.insert(*window.processID);
    }
    const auto work = [paths, processIDs] {
        QStringList found;
        for (const qint64 processID : processIDs) {
            const OpenFiles open = OpenFiles::of(processID);
            std::copy_if(paths.begin(), paths.end(), std::back_inserter(found),
                         [&](const QString &path) { return open.holds(path); });
        }
        return found;
    };
    try {
        co_return co_await SlowWork::withinDeadline(work, longestAnswer, SlowWork::Kind::Documents);
    } catch (const Failure &) {
        co_return {};
    }
}

QCoro::Task<QList<WindowLocation>> LinuxDocuments::locations(QSet<qint64> processIDs)
{
    QList<LiveWindow> windows = documentWindows();
    windows.removeIf([&](const LiveWindow &window) { return !processIDs.contains(*window.processID); });
    co_return co_await findDocuments(windows);
}

QCoro::Task<QList<WindowLocation>> LinuxDocuments::locationsOf(QString applicationID)
{
    QList<LiveWindow> windows = documentWindows();
    windows.removeIf([&](const LiveWindow &window) { return window.applicationID != applicationID; });
    co_return co_await findDocuments(windows);
}

} // namespace ardeno
