// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/common/SavedWindowFinder.h"

#include "platform/linux/common/BrowserProcesses.h"
#include "platform/linux/common/SessionReading.h"
#include "platform/linux/common/SlowWork.h"

#include <chrono>
#include <exception>
#include <utility>

namespace ardeno {

namespace {

// What the work on a thread needs, all of it its own.
struct TabSearch {
    SavedTab tab;
    QList<LiveWindow> live;

    std::optional<quint32> run() const;
    std::optional<quint32> searched(const BrowserProcess &process) const;
};

std::optional<quint32> TabSearch::searched(const BrowserProcess &process) const
{
    QList<LiveWindow> own = live;
    own.removeIf([&](const LiveWindow &window) { return window.processID != process.id; });
    const BrowserSession session = SessionReading::read(process, BrowserFamily::Chromium);
    for (const SessionWindow &window : session.windows) {
        if (!window.isOrdinary || window.id != tab.browserWindowID)
            continue;
        const auto found = certainWindow(window, session.windows, own);
        return found ? std::optional(found->windowID) : std::nullopt;
    }
    return std::nullopt;
}

std::optional<quint32> TabSearch::run() const
{
    QList<BrowserProcess> processes = BrowserProcesses::running();
    processes.removeIf([&](const BrowserProcess &process) {
        return process.browser.id != tab.browserID || !tab.capturedAt ||
               process.startedAt.seconds > tab.capturedAt->seconds;
    });
    // Two browsers may have a window of the same number.
    return processes.size() == 1 ? searched(processes.first()) : std::nullopt;
}

} // namespace

QCoro::Task<std::optional<quint32>> SavedWindowFinder::find(SavedTab tab)
{
    constexpr std::chrono::seconds deadline(2);
    auto live = m_liveWindows ? m_liveWindows() : std::nullopt;
    if (!live)
        co_return std::nullopt;
    const TabSearch search{std::move(tab), std::move(*live)};
    const auto work = [search] { return search.run(); };
    try {
        co_return co_await SlowWork::withinDeadline(work, deadline, SlowWork::Kind::Tabs);
    } catch (const std::exception &) {
        co_return std::nullopt; // What is not known is not certain.
    }
}

} // namespace ardeno
