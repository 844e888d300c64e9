// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/Reopening.h"

#include "capture/BrowserTabs.h"
#include "capture/macos/AppleScripts.h"
#include "support/Identifiers.h"

#include <QCoreApplication>
#include <QCoroTimer>

#include <algorithm>
#include <exception>
#include <utility>

namespace ardeno {

namespace {

using namespace WorkspaceCapture;

// Characters of addresses that one command takes; systems limit the length of a command.
constexpr qsizetype longestCommand = 60'000;

QString describe(const Failure &failure)
{
    QString text = failure.description();
    while (text.endsWith('.'))
        text.chop(1);
    return text;
}

QSet<QString> pageKeys(const QList<SavedTab> &tabs)
{
    QSet<QString> keys;
    for (const SavedTab &tab : tabs) {
        if (const auto key = tabURLKey(tab))
            keys.insert(*key);
    }
    return keys;
}

// Browsers that are here and whose pages nobody can read.
QSet<QString> neverReadable(Desktop &desktop)
{
    QSet<QString> ids;
    for (const Browser &browser : browsers(*desktop.tabSource)) {
        if (!desktop.tabSource->availability(browser.id).isAvailable() && desktop.launcher->isInstalled(browser.id))
            ids.insert(browser.id);
    }
    return ids;
}

// What the plan says of browsers that could not be read; that none is open is no fault here.
std::optional<QString> whatIsUncertain(const OpenTabs &open)
{
    QStringList sentences;
    for (const QString &name : open.unreadBrowserNames)
        sentences +=
            QCoreApplication::translate("ardeno::Reopening", "%1 tabs weren’t available. Whether its saved pages "
                                                             "are open is not known.")
                .arg(name);
    for (const QString &name : open.uncertainBrowserNames)
        sentences +=
            QCoreApplication::translate("ardeno::Reopening", "Some windows of %1 may be closed already. "
                                                             "Whether their saved pages are open is not known.")
                .arg(name);
    return sentences.isEmpty() ? std::nullopt : std::optional(sentences.join(' '));
}

// Tabs that go to the same place in one command.
struct TabGroup {
    QString browserID = {};
    QString windowID = {}; // The browser's own; empty when there is none.
    qint64 window = 0;
    QList<SavedTab> tabs = {};
    SavedBrowserWindow target = {};
    bool isContinued = false; // The group before it goes to the same place.

    QStringList addresses() const
    {
        QStringList list;
        for (const SavedTab &tab : tabs)
            list += tab.safeURL()->toOpen();
        return list;
    }
};

bool hasRoom(const TabGroup &group, const SavedTab &tab)
{
    qsizetype length = tab.url.size();
    for (const SavedTab &other : group.tabs)
        length += other.url.size();
    return length <= longestCommand;
}

bool isSameWindow(const TabGroup &group, const SavedTab &tab)
{
    return group.browserID == tab.browserID.value_or(QString()) &&
           group.windowID == tab.browserWindowID.value_or(QString()) && group.window == tab.window;
}

QList<TabGroup> grouped(const QList<SavedTab> &tabs)
{
    QList<TabGroup> groups;
    for (const SavedTab &tab : tabs) {
        // The last one of the window, as its tabs stand in order.
        const auto group = std::find_if(groups.rbegin(), groups.rend(),
                                        [&](const TabGroup &candidate) { return isSameWindow(candidate, tab); });
        if (group != groups.rend() && hasRoom(*group, tab)) {
            group->tabs.append(tab);
            continue;
        }
        TabGroup next{tab.browserID.value_or(QString()), tab.browserWindowID.value_or(QString()), tab.window, {tab}};
        next.isContinued = group != groups.rend();
        groups.insert(next.isContinued ? group.base() : groups.end(), next);
    }
    return groups;
}

// One resume from beginning to end.
class Reopening final {
public:
    Reopening(ReopenRequest request, ReopeningTools tools) : m_request(std::move(request)), m_tools(std::move(tools)) {}

    QCoro::Task<Reopened> run();

private:
    QList<SavedTab> chosenTabs() const;
    QList<SavedTab> savedFrom(const QString &browserID) const;
    QString browserFor(const TabGroup &group) const;
    bool waitsForPages(const SavedApp &app, const QList<SavedTab> &tabs) const;
    QCoro::Task<void> openApps(QList<SavedTab> tabs);
    QCoro::Task<void> openApp(SavedApp app);
    bool isRunning(const QString &appID) const;
    QCoro::Task<QList<SavedTab>> stillMissing(QList<SavedTab> tabs);
    QCoro::Task<void> openTabs(QList<SavedTab> tabs);
    QCoro::Task<bool> openGroup(TabGroup group);
    QCoro::Task<void> openPages(TabGroup group);
    void fail(const QString &name, const QString &reason);
    bool isStopped(const QString &next);

    ReopenRequest m_request;
    ReopeningTools m_tools;
    QList<SavedApp> m_waiting; // Browsers that start with their pages.
    Reopened m_result;
};

void Reopening::fail(const QString &name, const QString &reason)
{
    m_result.outcome.failures += u"%1 (%2)"_qs.arg(name, reason);
}

// Tells what comes next, unless its user has stopped the resume.
bool Reopening::isStopped(const QString &next)
{
    m_tools.control.awaits(next);
    return m_tools.control.isStopped();
}

QList<SavedTab> Reopening::chosenTabs() const
{
    const RestorePlan &plan = m_request.plan;
    QList<SavedTab> tabs = plan.tabsToOpen + plan.duplicateTabs + plan.unverifiedTabs;
    tabs.removeIf([&](const SavedTab &tab) { return !m_request.tabIDs.contains(tab.id) || !tab.safeURL(); });
    return tabs;
}

// A browser that is started alone shows a page of its own that nobody asked for.
bool Reopening::waitsForPages(const SavedApp &app, const QList<SavedTab> &tabs) const
{
    return std::any_of(tabs.begin(), tabs.end(), [&](const SavedTab &tab) { return tab.browserID == app.id; });
}

bool Reopening::isRunning(const QString &appID) const
{
    const QList<RunningApplication> running = m_tools.desktop.workspace->runningApplications();
    return std::any_of(running.begin(), running.end(),
                       [&](const RunningApplication &application) { return application.id == appID; });
}

QCoro::Task<void> Reopening::openApp(SavedApp app)
{
    if (isRunning(app.id)) { // Its user, or an application before it, has been quicker.
        ++m_result.outcome.alreadyActive;
        co_return;
    }
    if (isStopped(app.name)) {
        fail(app.name, ResumeControl::reason());
        co_return;
    }
    try {
        co_await m_tools.desktop.launcher->openApplication(app.id, m_request.pathsByApp.value(app.id));
        m_result.opened.appIDs.insert(app.id);
        m_result.startedAppIDs.insert(app.id);
    } catch (const Failure &failure) {
        fail(app.name, describe(failure));
    }
}

QCoro::Task<void> Reopening::openApps(QList<SavedTab> tabs)
{
    for (const SavedApp &app : std::as_const(m_request.plan.appsToOpen)) {
        if (!m_request.appIDs.contains(app.id))
            continue;
        if (!m_tools.desktop.launcher->isInstalled(app.id))
            m_result.outcome.unavailable += app.name;
        else if (waitsForPages(app, tabs))
            m_waiting.append(app);
        else
            co_await openApp(app);
    }
}

QCoro::Task<QList<SavedTab>> Reopening::stillMissing(QList<SavedTab> tabs)
{
    const QList<SavedApp> none;
    const RestorePlan now = co_await presentPlan(none, tabs, m_tools);
    const QSet<QUuid> active = idsOf(now.activeTabs);
    m_result.outcome.alreadyActive += active.size();
    tabs.removeIf([&](const SavedTab &tab) { return active.contains(tab.id); });
    co_return tabs;
}

// All saved tabs of the browser, the chosen ones and the others: by them its windows are told apart.
QList<SavedTab> Reopening::savedFrom(const QString &browserID) const
{
    const RestorePlan &plan = m_request.plan;
    QList<SavedTab> tabs =
        plan.activeTabs + plan.tabsToOpen + plan.duplicateTabs + plan.unverifiedTabs + plan.unavailableTabs;
    tabs.removeIf([&](const SavedTab &tab) { return tab.browserID != browserID; });
    return tabs;
}

// The saved one; empty for whichever the user has chosen.
QString Reopening::browserFor(const TabGroup &group) const
{
    return m_tools.desktop.launcher->isInstalled(group.browserID) ? group.browserID : QString();
}

QCoro::Task<void> Reopening::openPages(TabGroup group)
{
    const QString browser = browserFor(group);
    const QStringList addresses = group.addresses();
    const bool isMissing = group.target.state == SavedBrowserWindow::State::Missing;
    const PagePlace place = isMissing && !group.isContinued ? PagePlace::NewWindow : PagePlace::LastWindow;
    co_await m_tools.desktop.launcher->openPages(browser, addresses, place);
    if (!browser.isEmpty())
        m_result.startedAppIDs.insert(browser);
}

QCoro::Task<bool> Reopening::openGroup(TabGroup group)
{
    if (isStopped(pageName(group.tabs.first()))) {
        for (const SavedTab &tab : std::as_const(group.tabs))
            fail(pageName(tab), ResumeControl::reason());
        co_return false;
    }
    QList<TabToReopen> tabs;
    for (const SavedTab &tab : std::as_const(group.tabs))
        tabs.append({tab, tab.safeURL()->toOpen(), AppleScripts::openTabInSavedWindow(tab, group.browserID)});
    try {
        bool isInWindow = false;
        if (group.target.state == SavedBrowserWindow::State::Open)
            isInWindow = co_await m_tools.desktop.launcher->openInSavedWindow(group.target.windowID, tabs);
        if (!isInWindow)
            co_await openPages(group);
        co_return true;
    } catch (const Failure &failure) {
        for (const SavedTab &tab : std::as_const(group.tabs))
            fail(pageName(tab), describe(failure));
        co_return false;
    }
}

QCoro::Task<void> Reopening::openTabs(QList<SavedTab> tabs)
{
    QList<TabGroup> groups = grouped(tabs);
    // Before anything is opened, which would make windows that nobody saved.
    for (TabGroup &group : groups) {
        const QList<SavedTab> saved = savedFrom(group.browserID);
        group.target = co_await m_tools.desktop.launcher->findSavedWindow(group.tabs.first(), saved);
    }
    for (const TabGroup &group : std::as_const(groups)) {
        if (!co_await openGroup(group))
            continue;
        m_result.opened.tabs += group.tabs;
        m_tools.openedPages.remember(browserFor(group), group.tabs);
    }
}

QCoro::Task<Reopened> Reopening::run()
{
    const RestorePlan &plan = m_request.plan;
    m_result.outcome.alreadyActive = plan.activeApps.size() + plan.activeTabs.size();
    for (const SavedApp &app : plan.unavailableApps)
        m_result.outcome.unavailable += app.name;
    for (const SavedTab &tab : plan.unavailableTabs)
        m_result.outcome.unavailable += pageName(tab);
    QList<SavedTab> tabs = chosenTabs();
    co_await openApps(tabs);
    co_await QCoro::sleepFor(m_request.wait);
    if (!tabs.isEmpty()) {
        tabs = co_await stillMissing(tabs);
        co_await openTabs(tabs);
    }
    for (const SavedApp &app : std::as_const(m_waiting)) {
        if (m_result.startedAppIDs.contains(app.id))
            m_result.opened.appIDs.insert(app.id);
        else
            co_await openApp(app);
    }
    m_result.outcome.openedApps = m_result.opened.appIDs.size();
    m_result.outcome.openedTabs = m_result.opened.tabs.size();
    co_return m_result;
}

} // namespace

QCoro::Task<RestorePlan> WorkspaceCapture::presentPlan(QList<SavedApp> apps, QList<SavedTab> tabs, ReopeningTools tools)
{
    Desktop &desktop = tools.desktop;
    PresentWorkspace present;
    std::optional<QString> warning;
    present.runningAppIDs = idsOf(desktop.workspace->runningApplications());
    for (const SavedApp &app : std::as_const(apps)) {
        if (desktop.launcher->isInstalled(app.id))
            present.installedAppIDs.insert(app.id);
    }
    if (!tabs.isEmpty()) {
        const OpenTabs open = co_await browserTabs(*desktop.tabSource, tools.excludedAppIDs);
        warning = whatIsUncertain(open);
        QList<SavedTab> certain = open.tabs;
        certain.removeIf([&](const SavedTab &tab) { return open.uncertainTabIDs.contains(tab.id); });
        present.unreadBrowserIDs = open.unreadBrowserIDs + neverReadable(desktop);
        present.openPageKeys = pageKeys(certain) + tools.openedPages.pendingKeys(tabs, open);
        present.uncertainPageKeys = pageKeys(open.tabs);
    }
    RestorePlan plan = restorePlan(apps, tabs, present);
    plan.tabCheckWarning = warning;
    co_return plan;
}

QCoro::Task<Reopened> WorkspaceCapture::reopen(ReopenRequest request, ReopeningTools tools)
{
    Reopening reopening(std::move(request), std::move(tools));
    co_return co_await reopening.run();
}

} // namespace ardeno
