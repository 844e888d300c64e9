// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Launcher.h"
#include "platform/linux/common/ChildProcesses.h"
#include "platform/linux/common/DesktopEntries.h"
#include "platform/linux/common/SavedWindowFinder.h"

#include <QDeadlineTimer>
#include <QSet>

#include <functional>
#include <memory>

namespace ardeno {

// What the launcher needs of a session whose windows can be seen, to leave the user's focus where it is.
struct SessionFocus {
    LiveWindowList liveWindows = {};
    std::function<quint32()> activeWindow = {}; // 0: none.
    std::function<void(quint32)> activate = {};
};

// Opens applications by their desktop files. A new application takes the focus wherever it is started; it is given back
// to the window that had it, once, unless the user has gone elsewhere meanwhile.
class ApplicationLauncher final : public Launcher {
public:
    ApplicationLauncher(std::shared_ptr<DesktopEntries> entries, SessionFocus focus);

    Capability availability() const override { return Capability::available(); }

    bool isInstalled(const QString &appID) override;
    QCoro::Task<void> openApplication(QString appID, QStringList paths) override;
    QCoro::Task<void> openPath(QString path) override;
    QCoro::Task<void> reveal(QString path) override;
    QCoro::Task<void> openPages(QString appID, QStringList addresses) override;
    QCoro::Task<bool> openInSavedWindow(QList<TabToReopen> tabs) override;
    QCoro::Task<QStringList> settle() override;

private:
    // An application whose windows may come and take the focus.
    struct Expected {
        QString appID;
        bool hasWindow = false;
        QDeadlineTimer calm = {}; // From when on its window has had its chance to take the focus.
    };

    DesktopEntry entry(const QString &appID);
    void expect(const QString &appID);
    void watchFocus();
    void giveFocusBack(quint32 from, const QString &appID);
    void noticeWindows(const QList<QString> &appIDs);
    QCoro::Task<void> waitForEnd(pid_t process);

    std::shared_ptr<DesktopEntries> m_entries;
    SessionFocus m_focus;
    SavedWindowFinder m_finder;
    ChildProcesses m_children;
    QList<Expected> m_expected;
    quint32 m_focused = 0;     // The window that has the user's focus; 0 when there is none to be kept.
    QSet<quint32> m_givenBack; // Windows from which it was given back.
    QDeadlineTimer m_givingBack;
    QDeadlineTimer m_patience;
};

} // namespace ardeno
