// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/SavedWindowFinder.h"

#include "platform/linux/browsers/LiveWindows.h"
#include "platform/linux/browsers/RunningBrowsers.h"
#include "platform/linux/browsers/StateReading.h"
#include "platform/linux/files/SlowWork.h"
#include "support/WebAddress.h"

#include <QMap>
#include <QSet>

#include <algorithm>
#include <chrono>
#include <exception>
#include <utility>
#include <vector>

namespace ardeno {

namespace {

using State = SavedBrowserWindow::State;

QString keyOf(const QString &address)
{
    const auto parsed = WebAddress::parse(address);
    return parsed ? parsed->key() : address;
}

// A window as it was saved.
struct SavedPages {
    QString id = {}; // The browser's own; empty when it has none.
    QSet<QString> keys = {};
};

// By their numbers.
QMap<qint64, SavedPages> savedWindows(const QList<SavedTab> &saved)
{
    QMap<qint64, SavedPages> windows;
    for (const SavedTab &tab : saved) {
        SavedPages &window = windows[tab.window];
        window.id = tab.browserWindowID.value_or(QString());
        window.keys.insert(keyOf(tab.url));
    }
    return windows;
}

// Which open window each saved one is.
class Assignment final {
public:
    Assignment(const QMap<qint64, SavedPages> &saved, const QList<NumberedWindow> &open) : m_saved(saved), m_open(open)
    {
        byIdentifier();
        byPages();
        byNumber();
    }

    std::optional<qsizetype> of(qint64 number) const
    {
        const auto found = m_found.constFind(number);
        return found == m_found.cend() ? std::nullopt : std::optional(*found);
    }

private:
    void assign(qint64 number, qsizetype window)
    {
        const auto taken = m_found.values();
        if (!m_found.contains(number) && !taken.contains(window))
            m_found.insert(number, window);
    }

    void byIdentifier()
    {
        for (auto saved = m_saved.begin(); saved != m_saved.end(); ++saved) {
            for (qsizetype i = 0; i < m_open.size() && !saved->id.isEmpty(); ++i) {
                if (m_open[i].window.id == saved->id)
                    assign(saved.key(), i);
            }
        }
    }

    void byPages()
    {
        struct Overlap {
            qsizetype pages;
            qint64 number;
            qsizetype window;
        };

        std::vector<Overlap> overlaps;
        for (auto saved = m_saved.begin(); saved != m_saved.end(); ++saved) {
            for (qsizetype i = 0; i < m_open.size(); ++i) {
                QSet<QString> common;
                for (const ListedTab &tab : m_open[i].window.tabs)
                    common.insert(keyOf(tab.url));
                common.intersect(saved->keys);
                if (2 * common.size() > saved->keys.size())
                    overlaps.push_back({common.size(), saved.key(), i});
            }
        }
        std::stable_sort(overlaps.begin(), overlaps.end(),
                         [](const Overlap &a, const Overlap &b) { return a.pages > b.pages; });
        for (const Overlap &overlap : overlaps)
            assign(overlap.number, overlap.window);
    }

    void byNumber()
    {
        for (auto saved = m_saved.begin(); saved != m_saved.end(); ++saved) {
            for (qsizetype i = 0; i < m_open.size(); ++i) {
                if (m_open[i].number == saved.key())
                    assign(saved.key(), i);
            }
        }
    }

    const QMap<qint64, SavedPages> &m_saved;
    const QList<NumberedWindow> &m_open;
    QMap<qint64, qsizetype> m_found;
};

// What the work on a thread needs, all of it its own.
struct WindowSearch {
    SavedTab tab;
    QList<SavedTab> saved;
    QList<BrowserProcess> processes = {};
    QList<LiveWindow> live = {};

    SavedBrowserWindow run() const;

private:
    // The ordinary windows of all processes, with the live one of each, where that is certain.
    struct OpenWindows {
        QList<NumberedWindow> windows = {};
        std::vector<std::optional<LiveWindow>> shown = {};
        qint64 number = 0;
    };

    bool collect(const BrowserProcess &process, OpenWindows *open) const;
};

// False when some windows cannot be read.
bool WindowSearch::collect(const BrowserProcess &process, OpenWindows *open) const
{
    QList<LiveWindow> own = RunningBrowsers::windowsOf(process, tab.browserID.value_or(QString()), live);
    own.removeIf([](const LiveWindow &window) { return window.isDialog; });
    const BrowserState session = StateReading::read(process, process.browser.family.value_or(BrowserFamily::Chromium));
    if (session.unreadProfiles > 0)
        return false;
    QList<ListedWindow> windows;
    const QList<WindowFate> all = fates(session.windows, own);
    for (qsizetype i = 0; i < session.windows.size(); ++i) {
        if (all[i] != WindowFate::Closed)
            windows.append(session.windows[i]);
    }
    const QList<std::optional<LiveWindow>> certain = certainWindows(windows, own);
    for (qsizetype i = 0; i < windows.size(); ++i) {
        ++open->number;
        if (!windows[i].isOrdinary)
            continue;
        open->windows.append({open->number, windows[i]});
        open->shown.push_back(certain[i]);
    }
    return true;
}

SavedBrowserWindow WindowSearch::run() const
{
    OpenWindows open;
    for (const BrowserProcess &process : processes) {
        if (!collect(process, &open))
            return {};
    }
    const std::optional<qsizetype> found = windowOfTab(tab, saved, open.windows);
    if (!found)
        return {State::Missing};
    const std::optional<LiveWindow> &window = open.shown[static_cast<size_t>(*found)];
    return window ? SavedBrowserWindow{State::Open, window->windowID} : SavedBrowserWindow();
}

} // namespace

std::optional<qsizetype> windowOfTab(const SavedTab &tab, const QList<SavedTab> &saved,
                                     const QList<NumberedWindow> &open)
{
    const QMap<qint64, SavedPages> windows = savedWindows(saved + QList<SavedTab>{tab});
    return Assignment(windows, open).of(tab.window);
}

QCoro::Task<SavedBrowserWindow> SavedWindowFinder::find(SavedTab tab, QList<SavedTab> saved)
{
    constexpr std::chrono::seconds deadline(2);
    auto live = m_liveWindows ? m_liveWindows() : std::nullopt;
    if (!live)
        co_return SavedBrowserWindow();
    WindowSearch search{std::move(tab), std::move(saved)};
    for (const RunningBrowser &running : RunningBrowsers::all(live)) {
        if (running.browser.id == search.tab.browserID)
            search.processes = running.processes;
    }
    search.live = std::move(*live);
    const auto work = [search] { return search.run(); };
    try {
        co_return co_await SlowWork::withinDeadline(work, deadline, SlowWork::Kind::Tabs);
    } catch (const std::exception &) {
        co_return SavedBrowserWindow(); // What is not known is not certain.
    }
}

} // namespace ardeno
