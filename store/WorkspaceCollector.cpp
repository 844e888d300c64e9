// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/WorkspaceCollector.h"

#include "capture/WindowLayout.h"
#include "capture/WorkspaceCapture.h"
#include "store/MediaFolders.h"

#include <exception>

namespace ardeno {

WorkspaceCollector::WorkspaceCollector(Desktop &desktop, CaptureService &capture, const ExclusionRules &rules,
                                       const Library &library)
    : m_desktop(desktop), m_capture(capture), m_rules(rules), m_library(library)
{
}

QCoro::Task<void> WorkspaceCollector::fill(Checkpoint *checkpoint, QString mediaFolder, bool withTabs, QString *limits)
{
    CaptureExclusions rules;
    do {
        rules = m_rules.exclusions();
        co_await collect(checkpoint, mediaFolder, withTabs, limits);
    } while (rules != m_rules.exclusions());
}

QCoro::Task<void> WorkspaceCollector::collect(Checkpoint *checkpoint, QString mediaFolder, bool withTabs,
                                              QString *limits)
{
    const QSet<QString> excluded = m_rules.exclusions().appIDs();
    m_desktop.screenCapture->prepareExclusion(excluded);
    checkpoint->apps = WorkspaceCapture::applications(*m_desktop.workspace, m_desktop.roles, excluded);
    checkpoint->tabs.clear();
    checkpoint->captureNote = u"Open apps captured. Browser capture was off."_qs;
    // What windows and browsers show is read while the picture is taken.
    const QCoro::Task<QList<SavedWindow>> looking =
        WindowLayout::capture(checkpoint->apps, m_desktop, m_rules.exclusions(), QCoreApplication::applicationPid());
    std::optional<QCoro::Task<WorkspaceCapture::OpenTabs>> reading;
    if (withTabs)
        reading = capturedTabs();
    std::exception_ptr failure;
    try {
        co_await takePicture(checkpoint, mediaFolder);
    } catch (...) {
        failure = std::current_exception(); // What is being read is awaited all the same.
    }
    const QList<SavedWindow> seen = co_await looking;
    checkpoint->windows = seen;
    QString unread;
    if (reading) {
        const WorkspaceCapture::OpenTabs open = co_await *reading;
        checkpoint->tabs = open.tabs;
        checkpoint->captureNote = open.warning.value_or(u"Browser tabs and open apps captured."_qs);
        if (!open.unreadBrowserNames.isEmpty())
            unread = ' ' + *open.warning;
    }
    const QString missing = WorkspaceCapture::limits(checkpoint->apps);
    checkpoint->captureNote += missing;
    if (limits)
        *limits = unread + missing;
    if (failure)
        std::rethrow_exception(failure);
}

QCoro::Task<void> WorkspaceCollector::takePicture(Checkpoint *checkpoint, QString mediaFolder)
{
    const QString name = '/' + QString(MediaFile::screenshot);
    co_await m_capture.screenshot(mediaFolder + name, m_rules.exclusions().appIDs());
    checkpoint->screenshot = MediaFolders::own(m_library.storageFolder(), checkpoint->id) + name;
}

QCoro::Task<WorkspaceCapture::OpenTabs> WorkspaceCollector::capturedTabs()
{
    const QSet<QString> unread = m_rules.exclusions().appIDs();
    WorkspaceCapture::OpenTabs open = co_await WorkspaceCapture::browserTabs(*m_desktop.tabSource, unread);
    open.tabs.removeIf(
        [this](const SavedTab &tab) { return !m_rules.exclusions().allows(tab); }); // As they are by now.
    co_return open;
}

QCoro::Task<QList<SavedWindow>> WorkspaceCollector::capturedWindows(QList<SavedApp> apps)
{
    CaptureExclusions rules;
    QList<SavedWindow> windows;
    do { // A rule may be added meanwhile.
        rules = m_rules.exclusions();
        windows = co_await WindowLayout::capture(apps, m_desktop, rules, QCoreApplication::applicationPid());
    } while (rules != m_rules.exclusions());
    const QSet<QString> excluded = m_rules.exclusions().appIDs();
    windows.removeIf([&](const SavedWindow &window) { return excluded.contains(window.appID); });
    co_return windows;
}

Capability WorkspaceCollector::windowAccess() const
{
    return m_desktop.windowServer->availability();
}

} // namespace ardeno
