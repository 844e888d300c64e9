// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/WorkspaceEditing.h"

#include "support/Identifiers.h"

#include <utility>

namespace ardeno {

namespace {

// Those whose address the checkpoint does not have yet.
QList<SavedTab> newTabs(const Checkpoint &checkpoint, QList<SavedTab> tabs)
{
    QSet<QString> saved;
    for (const SavedTab &tab : checkpoint.tabs)
        saved.insert(tab.url);
    tabs.removeIf([&](const SavedTab &tab) { return saved.contains(tab.url); });
    return tabs;
}

} // namespace

WorkspaceEditing::WorkspaceEditing(Operations &operations, Library &library, RemovalUndo &removals,
                                   ExclusionRules &rules, WorkspaceCollector &collector)
    : m_operations(operations), m_library(library), m_removals(removals), m_rules(rules), m_collector(collector)
{
}

QCoro::Task<Outcome> WorkspaceEditing::addCurrentBrowserTabs(QUuid checkpointID)
{
    return m_operations.carryOut(addTabs(checkpointID));
}

QCoro::Task<Outcome> WorkspaceEditing::addTabs(QUuid checkpointID)
{
    Outcome outcome{.checkpointID = checkpointID};
    if (!m_library.editable(checkpointID))
        co_return outcome;
    if (const std::optional<QString> obstacle = m_rules.exclusionsObstacle()) {
        outcome.fail(*obstacle);
        co_return outcome;
    }
    const WorkspaceCapture::OpenTabs open = co_await m_collector.capturedTabs();
    const std::optional<Checkpoint> changed = m_library.editable(checkpointID); // As it is by now.
    if (!changed)
        co_return outcome;
    QList<SavedTab> added = newTabs(*changed, open.tabs);
    if (!added.isEmpty()) {
        const auto append = [&](Checkpoint &checkpoint) {
            added = newTabs(checkpoint, open.tabs); // Where another program has added some.
            checkpoint.tabs += added;
            return !added.isEmpty();
        };
        outcome = m_library.edit(checkpointID, "tabs", append);
        if (!outcome)
            co_return outcome;
        outcome.notice =
            tr("Added %n current browser tabs. Your screenshot is unchanged.", "", static_cast<int>(added.size()));
    } else if (!open.tabs.isEmpty() || !open.warning) {
        outcome.isDone = true;
        outcome.notice = tr("No new browser tabs to add.");
    }
    if (open.shownWarning)
        outcome.fail(*open.shownWarning);
    co_return outcome;
}

QCoro::Task<Outcome> WorkspaceEditing::addCurrentWindowLayout(QUuid checkpointID)
{
    return m_operations.carryOut(addLayout(checkpointID));
}

QCoro::Task<Outcome> WorkspaceEditing::addLayout(QUuid checkpointID)
{
    Outcome outcome{.checkpointID = checkpointID};
    const std::optional<Checkpoint> existing = m_library.editable(checkpointID);
    if (!existing)
        co_return outcome;
    const Capability server = m_collector.windowAccess();
    const auto obstacle = server.isAvailable() ? m_rules.exclusionsObstacle() : std::optional(server.reason);
    if (obstacle) {
        outcome.fail(*obstacle);
        co_return outcome;
    }
    QList<SavedWindow> windows = co_await m_collector.capturedWindows(existing->apps);
    if (windows.isEmpty()) {
        outcome.isDone = true;
        outcome.notice = tr("No visible windows matched this checkpoint’s saved apps.");
        co_return outcome;
    }
    RemovedLayout before;
    const auto replace = [&](Checkpoint &checkpoint) { // As it is by now.
        before = {checkpoint.windows};
        const QSet<QString> saved = idsOf(checkpoint.apps);
        windows.removeIf([&](const SavedWindow &window) { return !saved.contains(window.appID); });
        checkpoint.windows = windows;
        return true;
    };
    outcome = m_library.edit(checkpointID, "layout", replace);
    if (outcome && before.windows && !before.windows->isEmpty())
        m_removals.remember(WorkspaceRemoval{checkpointID, {before}});
    if (outcome)
        outcome.notice = tr("Saved current positions for %n windows. The screenshot is unchanged.", "",
                            static_cast<int>(windows.size()));
    co_return outcome;
}

template <typename Item>
Outcome WorkspaceEditing::removeItem(QUuid checkpointID, QList<Item> Checkpoint::*list, Item item)
{
    const std::optional<Checkpoint> existing = m_library.editable(checkpointID);
    if (!existing || !(*existing.*list).contains(item))
        return {};
    qsizetype index = -1;
    const auto remove = [&](Checkpoint &checkpoint) {
        index = (checkpoint.*list).indexOf(item);
        if (index >= 0)
            (checkpoint.*list).removeAt(index);
        return index >= 0;
    };
    const PublishTogether group;
    Outcome outcome = m_library.edit(checkpointID, "item", remove);
    if (outcome)
        m_removals.remember(WorkspaceRemoval{checkpointID, {std::move(item), index}});
    return m_operations.concluded(std::move(outcome));
}

Outcome WorkspaceEditing::removeApp(SavedApp app, QUuid checkpointID)
{
    return removeItem(checkpointID, &Checkpoint::apps, std::move(app));
}

Outcome WorkspaceEditing::removeTab(SavedTab tab, QUuid checkpointID)
{
    return removeItem(checkpointID, &Checkpoint::tabs, std::move(tab));
}

} // namespace ardeno
