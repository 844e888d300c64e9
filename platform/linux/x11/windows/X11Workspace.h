// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Workspace.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/x11/windows/X11ClientWatch.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <memory>

namespace ardeno {

// The applications that have windows on an X server; one without any window cannot be told from a mere process.
class X11Workspace final : public Workspace {
public:
    X11Workspace(std::shared_ptr<X11Connection> connection, std::shared_ptr<DesktopEntries> entries);

    Capability availability() const override;
    QList<RunningApplication> runningApplications() override;
    QList<InstalledApplication> installedApplications() override;
    std::optional<InstalledApplication> findApplication(const QString &name) override;
    bool isProgramRunning(const QString &appID) override;

    std::optional<ApplicationMarks> marks(const QString &appID) override;
    void setExcluded(const QSet<QString> &appIDs, const QList<ApplicationMarks> &marks) override;
    void setChangeHandler(std::function<void()> handler) override;

private:
    std::shared_ptr<X11Connection> m_connection;
    std::shared_ptr<DesktopEntries> m_entries;
    std::unique_ptr<X11ClientWatch> m_watch = {};
};

} // namespace ardeno
