// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Launcher.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/applications/DesktopLaunch.h"
#include "platform/linux/applications/FocusKeeper.h"
#include "platform/linux/browsers/SavedWindowFinder.h"
#include "platform/linux/running/ChildProcesses.h"

#include <chrono>
#include <functional>
#include <memory>

namespace ardeno {

// Opens applications by their desktop files and keeps the focus where it is.
class ApplicationLauncher final : public Launcher {
public:
    ApplicationLauncher(std::shared_ptr<DesktopEntries> entries, DesktopFocus focus);

    Capability availability() const override { return Capability::available(); }

    bool isInstalled(const QString &appID) override;
    QCoro::Task<void> openApplication(QString appID, QStringList paths) override;
    QCoro::Task<void> openPath(QString path) override;
    QCoro::Task<void> reveal(QString path) override;
    QCoro::Task<void> openPages(QString appID, QStringList addresses, PagePlace place) override;

    QCoro::Task<SavedBrowserWindow> findSavedWindow(SavedTab tab, QList<SavedTab> saved) override
    {
        return m_finder.find(std::move(tab), std::move(saved));
    }

    QCoro::Task<bool> openInSavedWindow(quint32 windowID, QList<TabToReopen> tabs) override;

    bool isStarting(const QString &appID) const override { return m_focus.isStarting(appID); }

    QCoro::Task<QList<FailedStart>> settle() override;

private:
    DesktopEntry entry(const QString &appID);
    // What it opens says which of it is lost when a process fails.
    QCoro::Task<DesktopLaunch::Processes> launch(DesktopEntry entry, QStringList contents,
                                                 std::function<DesktopLaunch::Processes()> work);
    void watch(const DesktopEntry &entry, const QStringList &contents, const DesktopLaunch::Processes &processes);
    QCoro::Task<DesktopLaunch::Processes> launchPages(const DesktopEntry &entry, const QStringList &addresses,
                                                      PagePlace place);
    QCoro::Task<void> waitForWindow(QString appID, qsizetype before, DesktopLaunch::Processes started,
                                    std::chrono::seconds patience);
    QCoro::Task<void> waitForEnd(DesktopLaunch::Processes processes);
    qsizetype windowsOf(const QString &appID) const;
    bool areRunning(const DesktopLaunch::Processes &processes) const;

    std::shared_ptr<DesktopEntries> m_entries;
    LiveWindowList m_liveWindows;
    SavedWindowFinder m_finder;
    ChildProcesses m_children;
    FocusKeeper m_focus;
};

} // namespace ardeno
