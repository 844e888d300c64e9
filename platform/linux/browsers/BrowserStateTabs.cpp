// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/BrowserStateTabs.h"

#include "platform/linux/browsers/LiveWindows.h"
#include "platform/linux/browsers/RunningBrowsers.h"
#include "platform/linux/browsers/StateReading.h"
#include "platform/linux/files/SlowWork.h"

#include <QDeadlineTimer>
#include <QThread>

#include <algorithm>
#include <array>
#include <utility>

namespace ardeno {

namespace {

constexpr auto chromiumID = "org.chromium.Chromium";
// Those that are always asked.
constexpr std::array alwaysAsked = {"com.brave.Browser", "com.google.Chrome", "org.mozilla.firefox", chromiumID};

// A field as it may stand in a record: without separators and halves of surrogate pairs.
QString cleaned(QString text)
{
    text.replace(QChar(TabRecords::fieldSeparator), ' ').replace(QChar(TabRecords::recordSeparator), ' ');
    if (!text.isValidUtf16())
        text = QString::fromUtf8(text.toUtf8());
    return text;
}

// Of the windows of one browser, which are counted through all of its processes.
class Records final {
public:
    Records(const Browser &browser, TabReport *report) : m_browser(browser), m_report(report) {}

    void add(const QList<ListedWindow> &windows, const QList<WindowFate> &fates)
    {
        for (qsizetype i = 0; i < windows.size(); ++i) {
            if (fates[i] == WindowFate::Closed)
                continue;
            ++m_number;
            if (!windows[i].isOrdinary)
                continue;
            add(windows[i]);
            if (fates[i] == WindowFate::Unknown)
                m_report->uncertainWindows.insert(m_number);
        }
    }

    const QString &text() const { return m_text; }

private:
    void add(const ListedWindow &window)
    {
        const QChar separator(TabRecords::fieldSeparator);
        QString start = QString::number(m_number) + separator;
        if (m_browser.family == BrowserFamily::Chromium)
            start += window.id.value_or(QString()) + separator;
        for (const ListedTab &tab : window.tabs)
            m_text +=
                start + cleaned(tab.url) + separator + cleaned(shownTitle(tab)) + QChar(TabRecords::recordSeparator);
    }

    const Browser &m_browser;
    TabReport *m_report;
    QString m_text;
    qsizetype m_number = 0;
};

} // namespace

// What the work on a thread needs, all of it its own.
struct BrowserStateTabs::Reading {
    QList<RunningBrowser> browsers; // Those to be read.
    std::optional<QList<LiveWindow>> live;
    std::chrono::milliseconds patience;

    BrowserState written(BrowserProcess process, QDeadlineTimer end) const;
    QList<WindowFate> fatesOf(const QList<ListedWindow> &windows, const RunningBrowser &running,
                              const BrowserProcess &process) const;
    QList<LiveWindow> ordinaryWindows(const RunningBrowser &running, const BrowserProcess &process) const;
    TabReport report(const RunningBrowser &running) const;
    BrowserWindows windows() const;
};

BrowserState BrowserStateTabs::Reading::written(BrowserProcess process, QDeadlineTimer end) const
{
    constexpr unsigned long pause = 50; // Milliseconds.
    const BrowserFamily family = process.browser.family.value_or(BrowserFamily::Chromium);
    BrowserState session = StateReading::read(process, family);
    while (session.unreadProfiles > 0 && !end.hasExpired()) {
        QThread::msleep(pause);
        BrowserProcesses::refresh(process);
        session = StateReading::read(process, family);
    }
    return session;
}

QList<WindowFate> BrowserStateTabs::Reading::fatesOf(const QList<ListedWindow> &windows, const RunningBrowser &running,
                                                     const BrowserProcess &process) const
{
    if (!live) {
        QList<WindowFate> listed;
        for (const ListedWindow &window : windows)
            listed.append(window.isCurrent ? WindowFate::Open : WindowFate::Closed);
        return listed;
    }
    return fates(windows, ordinaryWindows(running, process));
}

// The windows that the process may have written down.
QList<LiveWindow> BrowserStateTabs::Reading::ordinaryWindows(const RunningBrowser &running,
                                                             const BrowserProcess &process) const
{
    QList<LiveWindow> own = RunningBrowsers::windowsOf(process, running.browser.id, *live);
    const bool marks = running.browser.family == BrowserFamily::Firefox;
    own.removeIf([&](const LiveWindow &window) { return window.isDialog || (marks && isMarkedPrivate(window.title)); });
    return own;
}

BrowserWindows BrowserStateTabs::Reading::windows() const
{
    const QDeadlineTimer end(patience);
    BrowserWindows found;
    for (const RunningBrowser &running : browsers) {
        for (const BrowserProcess &process : running.processes) {
            const auto pages = shownPages(written(process, end).windows, ordinaryWindows(running, process));
            for (auto page = pages.begin(); page != pages.end(); ++page)
                found.insert(page.key(), page.value());
        }
    }
    return found;
}

TabReport BrowserStateTabs::Reading::report(const RunningBrowser &running) const
{
    const QDeadlineTimer end(patience);
    TabReport report{.isComplete = running.isReadWhole};
    Records records(running.browser, &report);
    qsizetype readProfiles = 0;
    for (const BrowserProcess &process : running.processes) {
        const BrowserState one = written(process, end);
        const QList<WindowFate> fates = fatesOf(one.windows, running, process);
        readProfiles += one.readProfiles;
        report.isComplete = report.isComplete && one.unreadProfiles == 0;
        if (one.writtenAt)
            report.writtenAt = std::min(report.writtenAt.value_or(*one.writtenAt), *one.writtenAt);
        records.add(one.windows, fates);
    }
    if (readProfiles == 0 && (!report.isComplete || running.processes.isEmpty()))
        throw Failure("BrowserStateTabs", 1, u"The session of %1 could not be read."_qs.arg(running.browser.name));
    report.records = records.text();
    return report;
}

BrowserStateTabs::BrowserStateTabs(LiveWindowList liveWindows, Options options)
    : m_liveWindows(std::move(liveWindows)), m_options(std::move(options))
{
}

QList<Browser> BrowserStateTabs::furtherBrowsers()
{
    QList<Browser> further = {{chromiumID, "Chromium", BrowserFamily::Chromium}};
    for (const RunningBrowser &running : reading({}).browsers) {
        if (std::find(alwaysAsked.begin(), alwaysAsked.end(), running.browser.id) == alwaysAsked.end())
            further.append(running.browser);
    }
    return further;
}

Capability BrowserStateTabs::availability(const QString &browserID) const
{
    return browserID == "com.apple.Safari" ? Capability::unavailable("This browser does not exist on Linux.")
                                           : Capability::available();
}

bool BrowserStateTabs::isRunning(const QString &browserID)
{
    return !reading(browserID).browsers.isEmpty();
}

// Of one browser, or of all without an identifier.
BrowserStateTabs::Reading BrowserStateTabs::reading(const QString &browserID) const
{
    Reading reading;
    reading.live = m_liveWindows ? m_liveWindows() : std::nullopt;
    reading.browsers = RunningBrowsers::all(reading.live, m_options.processFolder);
    reading.patience = m_options.patience;
    if (!browserID.isEmpty())
        reading.browsers.removeIf([&](const RunningBrowser &running) { return running.browser.id != browserID; });
    return reading;
}

QCoro::Task<TabReport> BrowserStateTabs::openTabs(Browser browser, QString)
{
    const Reading now = reading(browser.id);
    if (now.browsers.isEmpty())
        throw Failure("BrowserStateTabs", 2, u"%1 has ended."_qs.arg(browser.name));
    const auto work = [now] { return now.report(now.browsers.first()); };
    co_return co_await SlowWork::withinDeadline(work, m_options.deadline, SlowWork::Kind::Tabs);
}

QCoro::Task<BrowserWindows> BrowserStateTabs::browserWindows()
{
    Reading now = reading({});
    now.patience = {};
    BrowserWindows windows;
    for (const LiveWindow &window : now.live.value_or(QList<LiveWindow>())) {
        if (window.isBrowser)
            windows.insert(window.windowID, std::nullopt);
    }
    if (windows.isEmpty())
        co_return windows;
    const auto work = [now] { return now.windows(); };
    try {
        windows.insert(co_await SlowWork::withinDeadline(work, m_options.deadline, SlowWork::Kind::Tabs));
    } catch (const Failure &) {
        // None of them has a title then.
    }
    co_return windows;
}

} // namespace ardeno
