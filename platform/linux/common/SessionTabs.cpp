// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/common/SessionTabs.h"

#include "platform/linux/common/SessionReading.h"
#include "platform/linux/common/SlowWork.h"

#include <QDeadlineTimer>
#include <QThread>

#include <algorithm>
#include <array>
#include <utility>

namespace ardeno {

namespace {

constexpr std::array readable = {"com.brave.Browser", "com.google.Chrome", "org.mozilla.firefox",
                                 "org.chromium.Chromium"};

bool isWindowOf(const LiveWindow &window, const BrowserProcess &process, const QString &browserID)
{
    return window.processID ? *window.processID == process.id : window.applicationID == browserID;
}

// A browser without any window on this desktop belongs to another one, or only serves in the background.
bool hasWindow(const QList<LiveWindow> &windows, const BrowserProcess &process, const QString &browserID)
{
    return std::any_of(windows.begin(), windows.end(),
                       [&](const LiveWindow &window) { return isWindowOf(window, process, browserID); });
}

// A field as it may stand in a record: without separators and halves of surrogate pairs.
QString cleaned(QString text)
{
    text.replace(QChar(TabRecords::fieldSeparator), ' ').replace(QChar(TabRecords::recordSeparator), ' ');
    if (!text.isValidUtf16())
        text = QString::fromUtf8(text.toUtf8());
    return text;
}

void addWindow(QString &records, const SessionWindow &window, qsizetype number, const Browser &browser)
{
    const QChar separator(TabRecords::fieldSeparator);
    QString start = QString::number(number) + separator;
    if (browser.family == BrowserFamily::Chromium)
        start += window.id.value_or(QString()) + separator;
    for (const SessionTab &tab : window.tabs)
        records += start + cleaned(tab.url) + separator + cleaned(shownTitle(tab)) + QChar(TabRecords::recordSeparator);
}

} // namespace

// What the work on a thread needs, all of it its own.
struct SessionTabs::Reading {
    Browser browser;
    QList<BrowserProcess> processes;
    std::optional<QList<LiveWindow>> live;
    std::chrono::milliseconds patience;

    // As the browser wrote it down, windows that have gone included.
    BrowserSession written(BrowserProcess process, QDeadlineTimer end) const;
    BrowserSession session(const BrowserProcess &process, QDeadlineTimer end) const;
    QList<LiveWindow> windowsOf(const BrowserProcess &process) const;
    TabReport report() const;
    QSet<quint32> ordinaryWindows() const;
};

BrowserSession SessionTabs::Reading::written(BrowserProcess process, QDeadlineTimer end) const
{
    constexpr unsigned long pause = 50; // Milliseconds.
    BrowserSession session = SessionReading::read(process, browser.family);
    while (session.unreadProfiles > 0 && !end.hasExpired()) {
        QThread::msleep(pause);
        BrowserProcesses::refresh(process);
        session = SessionReading::read(process, browser.family);
    }
    return session;
}

QList<LiveWindow> SessionTabs::Reading::windowsOf(const BrowserProcess &process) const
{
    QList<LiveWindow> own = live.value_or(QList<LiveWindow>());
    own.removeIf([&](const LiveWindow &window) { return !isWindowOf(window, process, browser.id); });
    return own;
}

BrowserSession SessionTabs::Reading::session(const BrowserProcess &process, QDeadlineTimer end) const
{
    BrowserSession session = written(process, end);
    if (live)
        session.windows = withoutGhosts(session.windows, windowsOf(process));
    return session;
}

QSet<quint32> SessionTabs::Reading::ordinaryWindows() const
{
    const QDeadlineTimer end(patience);
    QSet<quint32> found;
    for (const BrowserProcess &process : processes)
        found += windowsOfPages(written(process, end).windows, windowsOf(process));
    return found;
}

TabReport SessionTabs::Reading::report() const
{
    const QDeadlineTimer end(patience);
    TabReport report;
    QString records;
    qsizetype number = 0;
    qsizetype readProfiles = 0;
    for (const BrowserProcess &process : processes) {
        const BrowserSession one = session(process, end);
        readProfiles += one.readProfiles;
        report.isComplete = report.isComplete && one.unreadProfiles == 0;
        if (one.writtenAt)
            report.writtenAt = std::min(report.writtenAt.value_or(*one.writtenAt), *one.writtenAt);
        for (const SessionWindow &window : one.windows) {
            ++number;
            if (window.isOrdinary)
                addWindow(records, window, number, browser);
        }
    }
    if (!report.isComplete && readProfiles == 0)
        throw Failure("SessionTabs", 1, u"The session of %1 could not be read."_qs.arg(browser.name));
    report.records = records;
    return report;
}

SessionTabs::SessionTabs(LiveWindowList liveWindows, Options options)
    : m_liveWindows(std::move(liveWindows)), m_options(std::move(options))
{
}

QList<Browser> SessionTabs::furtherBrowsers() const
{
    return {{"org.chromium.Chromium", "Chromium", BrowserFamily::Chromium}};
}

Capability SessionTabs::availability(const QString &browserID) const
{
    if (std::find(readable.begin(), readable.end(), browserID) != readable.end())
        return Capability::available();
    return Capability::unavailable("This browser does not exist on Linux.");
}

bool SessionTabs::isRunning(const QString &browserID)
{
    const auto live = m_liveWindows ? m_liveWindows() : std::nullopt;
    return !runningProcesses(browserID, live).isEmpty();
}

QList<BrowserProcess> SessionTabs::runningProcesses(const QString &browserID,
                                                    const std::optional<QList<LiveWindow>> &live)
{
    if (!availability(browserID).isAvailable())
        return {};
    QList<BrowserProcess> processes = BrowserProcesses::running(m_options.processFolder);
    processes.removeIf([&](const BrowserProcess &process) { return process.browser.id != browserID; });
    if (live)
        processes.removeIf([&](const BrowserProcess &process) { return !hasWindow(*live, process, browserID); });
    return processes;
}

SessionTabs::Reading SessionTabs::reading(const Browser &browser)
{
    Reading reading;
    reading.live = m_liveWindows ? m_liveWindows() : std::nullopt;
    reading.processes = runningProcesses(browser.id, reading.live);
    reading.browser = browser;
    reading.patience = m_options.patience;
    return reading;
}

QCoro::Task<TabReport> SessionTabs::openTabs(Browser browser, QString)
{
    const auto work = [reading = reading(browser)] { return reading.report(); };
    return SlowWork::withinDeadline(work, m_options.deadline, SlowWork::Kind::Tabs);
}

QCoro::Task<std::optional<QSet<quint32>>> SessionTabs::ordinaryWindows(QString appID)
{
    if (!availability(appID).isAvailable())
        co_return std::nullopt;
    const bool isFirefox = appID == "org.mozilla.firefox";
    const Browser browser{appID, {}, isFirefox ? BrowserFamily::Firefox : BrowserFamily::Chromium};
    Reading now = reading(browser);
    now.patience = {};
    const auto work = [now] { return now.ordinaryWindows(); };
    try {
        co_return co_await SlowWork::withinDeadline(work, m_options.deadline, SlowWork::Kind::Tabs);
    } catch (const Failure &) {
        co_return QSet<quint32>();
    }
}

} // namespace ardeno
