// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/AppStore.h"
#include "store/MediaFolders.h"
#include "store/MediaRemoval.h"
#include "store/Subjects.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace ardeno {

void AppStore::remember(const std::optional<WorkspaceRemoval> &removal)
{
    const std::optional<WorkspaceRemoval> before = lastRemoval();
    lastRemoval.set(removal);
    if (before && before != removal)
        settleRemoved(*before);
}

bool AppStore::isNamed(const QUuid &checkpointID, const QString &file) const
{
    const Checkpoint *const owner = checkpoint(checkpointID);
    const auto names = [&](const std::optional<QString> &recorded) {
        return recorded && MediaFolders::fileOf(m_repository.root(), checkpointID, *recorded) == file;
    };
    return owner && (names(owner->screenshot) || names(owner->recording));
}

bool AppStore::isUndoable(const WorkspaceRemoval &removal) const
{
    const auto *const picture = std::get_if<RemovedPicture>(&removal.item.item);
    if (!editable(removal.checkpointID) || !picture)
        return editable(removal.checkpointID).has_value();
    const auto file = MediaFolders::fileOf(m_repository.root(), removal.checkpointID, picture->screenshot);
    return !file || !isNamed(removal.checkpointID, *file); // Another program may have put it back.
}

// The file of a picture has stood aside until now.
void AppStore::settleRemoved(const WorkspaceRemoval &removal)
{
    const auto *const picture = std::get_if<RemovedPicture>(&removal.item.item);
    if (!picture)
        return;
    std::optional<Failure> failure;
    QString remains;
    try {
        const auto file =
            MediaRemoval::allowed(m_repository.root(), removal.checkpointID, picture->screenshot).value_or(QString());
        remains = MediaFolders::leaving(file);
        if (!file.isEmpty())
            failure = isNamed(removal.checkpointID, file) ? MediaRemoval::bringBack(file) : MediaRemoval::discard(file);
    } catch (const Failure &unknown) {
        failure = unknown;
    }
    if (failure)
        report(tr("Screenshot removed, but its file could not be deleted from ") + remains + ": " +
                   failure->description(),
               subjects::about("picture", removal.checkpointID));
}

Outcome AppStore::undoWorkspaceRemoval()
{
    const std::optional<WorkspaceRemoval> removal = lastRemoval();
    const std::optional<Checkpoint> before = removal ? editable(removal->checkpointID) : std::nullopt;
    if (!before)
        return {};
    const PublishTogether group;
    if (const auto *const picture = std::get_if<RemovedPicture>(&removal->item.item))
        return concluded(putPictureBack(*before, *picture));
    const auto putBack = [&](Checkpoint &checkpoint) {
        const auto insert = [&](auto &list, const auto &item) {
            list.insert(std::min(removal->item.index, list.size()), item);
        };
        if (const auto *const app = std::get_if<SavedApp>(&removal->item.item))
            insert(checkpoint.apps, *app);
        else if (const auto *const tab = std::get_if<SavedTab>(&removal->item.item))
            insert(checkpoint.tabs, *tab);
        else
            checkpoint.windows = std::get<RemovedLayout>(removal->item.item).windows;
        return true;
    };
    const bool isLayout = std::holds_alternative<RemovedLayout>(removal->item.item);
    Outcome outcome = edit(removal->checkpointID, isLayout ? "layout" : "item", putBack);
    if (outcome)
        lastRemoval.set(std::nullopt);
    return concluded(std::move(outcome));
}

// The one that stands in its place goes aside in turn, and can be brought back the same way.
Outcome AppStore::putPictureBack(const Checkpoint &before, const RemovedPicture &picture)
{
    const QString failed = tr("Could not bring the screenshot back: ");
    Outcome outcome{.subject = subjects::about("picture", before.id)};
    std::optional<QString> returning;
    std::optional<QString> displaced;
    std::optional<Failure> failure;
    try {
        returning = MediaRemoval::allowed(m_repository.root(), before.id, picture.screenshot);
        if (before.screenshot)
            displaced = MediaRemoval::allowed(m_repository.root(), before.id, *before.screenshot);
    } catch (const Failure &unknown) {
        failure = unknown;
    }
    MediaRemoval removal(displaced.value_or(QString()));
    if (!failure)
        failure = removal.begin();
    if (failure) {
        outcome.fail(failed + failure->description());
        return outcome;
    }
    const auto show = [&](Checkpoint &checkpoint) {
        checkpoint.screenshot = picture.screenshot;
        return true;
    };
    const SettleMedia settle = [&] {
        const auto missing = returning ? MediaRemoval::bringBack(*returning) : std::nullopt;
        if (missing)
            throw Failure(*missing);
    };
    outcome = edit(before.id, "picture", show, failed, settle);
    if (!outcome) {
        putBack(removal, &outcome);
        return outcome;
    }
    forgetPictures({before});
    lastRemoval.set(before.screenshot ? std::optional(WorkspaceRemoval{before.id, {RemovedPicture{*before.screenshot}}})
                                      : std::nullopt);
    return outcome;
}

} // namespace ardeno
