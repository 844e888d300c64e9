// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/TabSource.h"
#include "platform/linux/browsers/BrowserProcesses.h"
#include "platform/linux/running/LiveWindow.h"

#include <chrono>
#include <memory>

namespace ardeno {

// Reads the tabs from the state files that the running browsers keep. Nothing in a profile is written or locked.
class BrowserStateTabs final : public TabSource {
public:
    struct Options {
        QString processFolder = "/proc";
        std::chrono::milliseconds deadline = std::chrono::seconds(5); // For reading one browser.
        // How long a browser that is in the middle of writing may take until its files count as unreadable.
        std::chrono::milliseconds patience = std::chrono::seconds(2);
    };

    explicit BrowserStateTabs(LiveWindowList liveWindows, Options options);

    explicit BrowserStateTabs(LiveWindowList liveWindows) : BrowserStateTabs(std::move(liveWindows), Options()) {}

    QList<Browser> furtherBrowsers() override;
    Capability availability(const QString &browserID) const override;
    bool isRunning(const QString &browserID) override;
    QCoro::Task<TabReport> openTabs(Browser browser, QString script) override;
    QCoro::Task<BrowserWindows> browserWindows() override;

private:
    struct Reading;

    Reading reading(const QString &browserID) const;

    LiveWindowList m_liveWindows;
    Options m_options;
};

} // namespace ardeno
