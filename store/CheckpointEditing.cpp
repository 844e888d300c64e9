// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowLayout.h"
#include "store/AppStore.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace ardeno {

// A copy to change, of a checkpoint that may be changed.
std::optional<Checkpoint> AppStore::editable(const QUuid &id) const
{
    const Checkpoint *const found = checkpoint(id);
    return found && !found->isSample ? std::optional(*found) : std::nullopt;
}

// What the user looks at stays as it is: a note may be saved because another checkpoint was chosen.
bool AppStore::writeEdit(Checkpoint checkpoint, const SettleMedia &settle)
{
    return write(std::move(checkpoint), tr("Could not save this checkpoint: "), settle);
}

bool AppStore::updateNote(QString Checkpoint::*field, const QString &text, QUuid checkpointID)
{
    std::optional<Checkpoint> changed = editable(checkpointID);
    if (!changed)
        return false;
    if (*changed.*field == text)
        return true;
    clearMessages();
    *changed.*field = text;
    return writeEdit(std::move(*changed));
}

QCoro::Task<void> AppStore::addCurrentBrowserTabs(QUuid checkpointID)
{
    if (!editable(checkpointID))
        co_return;
    clearMessages();
    const WorkspaceCapture::OpenTabs open = co_await capturedTabs();
    std::optional<Checkpoint> changed = editable(checkpointID); // As it is by now.
    if (!changed)
        co_return;
    QSet<QString> saved;
    for (const SavedTab &tab : std::as_const(changed->tabs))
        saved.insert(tab.url);
    QList<SavedTab> added = open.tabs;
    added.removeIf([&](const SavedTab &tab) { return saved.contains(tab.url) || !exclusions().allows(tab); });
    if (!added.isEmpty()) {
        changed->tabs += added;
        if (!writeEdit(std::move(*changed)))
            co_return;
        notice.set(
            tr("Added %n current browser tabs. Your screenshot is unchanged.", "", static_cast<int>(added.size())));
    } else if (!open.tabs.isEmpty() || !open.warning) {
        notice.set(tr("No new browser tabs to add."));
    }
    error.set(open.shownWarning);
}

QCoro::Task<void> AppStore::addCurrentWindowLayout(QUuid checkpointID)
{
    std::optional<Checkpoint> changed = editable(checkpointID);
    if (!changed)
        co_return;
    clearMessages();
    const Capability server = m_desktop.windowServer->availability();
    if (!server.isAvailable()) {
        error.set(server.reason);
        co_return;
    }
    const WindowLayout::Captured captured =
        co_await WindowLayout::capture(changed->apps, m_desktop, QCoreApplication::applicationPid());
    QList<SavedWindow> windows = captured.windows;
    const QSet<QString> excluded = exclusions().appIDs();
    windows.removeIf([&](const SavedWindow &window) { return excluded.contains(window.appID); });
    if (windows.isEmpty()) {
        notice.set(tr("No visible windows matched this checkpoint’s saved apps."));
        co_return;
    }
    changed = editable(checkpointID); // As it is by now.
    if (!changed)
        co_return;
    changed->windows = windows;
    if (writeEdit(std::move(*changed)))
        notice.set(tr("Saved current positions for %n windows. The screenshot is unchanged.", "",
                      static_cast<int>(windows.size())));
}

template <typename Item>
bool AppStore::removeItem(QUuid checkpointID, QList<Item> Checkpoint::*list, Item item)
{
    std::optional<Checkpoint> changed = editable(checkpointID);
    const qsizetype index = changed ? (*changed.*list).indexOf(item) : -1;
    if (index < 0)
        return false;
    clearMessages();
    (*changed.*list).removeAt(index);
    const PublishTogether group;
    if (!writeEdit(std::move(*changed)))
        return false;
    lastRemoval.set(WorkspaceRemoval{checkpointID, {std::move(item), index}});
    return true;
}

bool AppStore::removeApp(SavedApp app, QUuid checkpointID)
{
    return removeItem(checkpointID, &Checkpoint::apps, std::move(app));
}

bool AppStore::removeTab(SavedTab tab, QUuid checkpointID)
{
    return removeItem(checkpointID, &Checkpoint::tabs, std::move(tab));
}

void AppStore::undoWorkspaceRemoval()
{
    const std::optional<WorkspaceRemoval> removal = lastRemoval();
    std::optional<Checkpoint> changed = removal ? editable(removal->checkpointID) : std::nullopt;
    if (!changed)
        return;
    clearMessages();
    const auto insert = [&](auto &list, const auto &item) {
        list.insert(std::min(removal->item.index, list.size()), item);
    };
    if (const SavedApp *const app = std::get_if<SavedApp>(&removal->item.item))
        insert(changed->apps, *app);
    else
        insert(changed->tabs, std::get<SavedTab>(removal->item.item));
    const PublishTogether group;
    if (writeEdit(std::move(*changed)))
        lastRemoval.set(std::nullopt);
}

} // namespace ardeno
