// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowLayout.h"
#include "store/AppStore.h"
#include "store/Subjects.h"
#include "support/Identifiers.h"

#include <algorithm>
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

// A copy to change, of a checkpoint that may be changed.
std::optional<Checkpoint> AppStore::editable(const QUuid &id) const
{
    const Checkpoint *const found = checkpoint(id);
    return found && !found->isSample ? std::optional(*found) : std::nullopt;
}

// What the user looks at stays as it is: a note may be saved because another checkpoint was chosen.
Outcome AppStore::edit(QUuid checkpointID, const char *what, const std::function<bool(Checkpoint &)> &change,
                       const QString &failurePrefix, const SettleMedia &settle)
{
    Outcome outcome{.id = checkpointID, .checkpointID = checkpointID, .subject = subjects::about(what, checkpointID)};
    const auto apply = [&](WorkspaceLibrary &library) {
        const auto found = std::find_if(library.checkpoints.begin(), library.checkpoints.end(),
                                        [&](const Checkpoint &candidate) { return candidate.id == checkpointID; });
        return found != library.checkpoints.end() && !found->isSample && change(*found);
    };
    const QString prefix = failurePrefix.isEmpty() ? tr("Could not save this checkpoint: ") : failurePrefix;
    outcome.isDone = commit(apply, prefix, &outcome, settle);
    return outcome;
}

QCoro::Task<Outcome> AppStore::addCurrentBrowserTabs(QUuid checkpointID)
{
    return carryOut(addTabs(checkpointID));
}

QCoro::Task<Outcome> AppStore::addTabs(QUuid checkpointID)
{
    Outcome outcome{.checkpointID = checkpointID};
    if (!editable(checkpointID))
        co_return outcome;
    if (const std::optional<QString> obstacle = exclusionsObstacle()) {
        outcome.fail(*obstacle);
        co_return outcome;
    }
    const WorkspaceCapture::OpenTabs open = co_await capturedTabs();
    const std::optional<Checkpoint> changed = editable(checkpointID); // As it is by now.
    if (!changed)
        co_return outcome;
    QList<SavedTab> added = newTabs(*changed, open.tabs);
    if (!added.isEmpty()) {
        const auto append = [&](Checkpoint &checkpoint) {
            added = newTabs(checkpoint, open.tabs); // Where another program has added some.
            checkpoint.tabs += added;
            return !added.isEmpty();
        };
        outcome = edit(checkpointID, "tabs", append);
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

QCoro::Task<Outcome> AppStore::addCurrentWindowLayout(QUuid checkpointID)
{
    return carryOut(addLayout(checkpointID));
}

QCoro::Task<Outcome> AppStore::addLayout(QUuid checkpointID)
{
    Outcome outcome{.checkpointID = checkpointID};
    const std::optional<Checkpoint> existing = editable(checkpointID);
    if (!existing)
        co_return outcome;
    const Capability server = m_desktop.windowServer->availability();
    const auto obstacle = server.isAvailable() ? exclusionsObstacle() : std::optional(server.reason);
    if (obstacle) {
        outcome.fail(*obstacle);
        co_return outcome;
    }
    CaptureExclusions rules;
    WindowLayout::Captured captured;
    do { // A rule may be added meanwhile.
        rules = exclusions();
        captured = co_await WindowLayout::capture(existing->apps, m_desktop, rules, QCoreApplication::applicationPid());
    } while (rules != exclusions());
    QList<SavedWindow> windows = captured.windows;
    const QSet<QString> excluded = exclusions().appIDs();
    windows.removeIf([&](const SavedWindow &window) { return excluded.contains(window.appID); });
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
    outcome = edit(checkpointID, "layout", replace);
    if (outcome && before.windows && !before.windows->isEmpty())
        remember(WorkspaceRemoval{checkpointID, {before}});
    if (outcome)
        outcome.notice = tr("Saved current positions for %n windows. The screenshot is unchanged.", "",
                            static_cast<int>(windows.size()));
    co_return outcome;
}

template <typename Item>
Outcome AppStore::removeItem(QUuid checkpointID, QList<Item> Checkpoint::*list, Item item)
{
    const std::optional<Checkpoint> existing = editable(checkpointID);
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
    Outcome outcome = edit(checkpointID, "item", remove);
    if (outcome)
        remember(WorkspaceRemoval{checkpointID, {std::move(item), index}});
    return concluded(std::move(outcome));
}

Outcome AppStore::removeApp(SavedApp app, QUuid checkpointID)
{
    return removeItem(checkpointID, &Checkpoint::apps, std::move(app));
}

Outcome AppStore::removeTab(SavedTab tab, QUuid checkpointID)
{
    return removeItem(checkpointID, &Checkpoint::tabs, std::move(tab));
}

} // namespace ardeno
