// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/RemovalUndo.h"

#include "store/MediaFolders.h"
#include "store/MediaRemoval.h"
#include "store/Subjects.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace ardeno {

RemovalUndo::RemovalUndo(Operations &operations, Messages &messages, Library &library, CheckpointMedia &media)
    : m_operations(operations), m_messages(messages), m_library(library), m_media(media)
{
}

void RemovalUndo::settleLast()
{
    if (lastRemoval())
        settleRemoved(*lastRemoval());
}

void RemovalUndo::look()
{
    if (lastRemoval() && !isUndoable(*lastRemoval()))
        remember(std::nullopt);
}

void RemovalUndo::remember(const std::optional<WorkspaceRemoval> &removal)
{
    const std::optional<WorkspaceRemoval> before = lastRemoval();
    lastRemoval.set(removal);
    if (before && before != removal)
        settleRemoved(*before);
}

bool RemovalUndo::isNamed(const QUuid &checkpointID, const QString &file) const
{
    const Checkpoint *const owner = m_library.checkpoint(checkpointID);
    const auto names = [&](const std::optional<QString> &recorded) {
        return recorded && MediaFolders::fileOf(m_library.storageFolder(), checkpointID, *recorded) == file;
    };
    return owner && (names(owner->screenshot) || names(owner->recording));
}

bool RemovalUndo::isUndoable(const WorkspaceRemoval &removal) const
{
    const auto *const picture = std::get_if<RemovedPicture>(&removal.item.item);
    if (!m_library.editable(removal.checkpointID) || !picture)
        return m_library.editable(removal.checkpointID).has_value();
    const auto file = MediaFolders::fileOf(m_library.storageFolder(), removal.checkpointID, picture->screenshot);
    return !file || !isNamed(removal.checkpointID, *file); // Another program may have put it back.
}

// The file of a picture has stood aside until now.
void RemovalUndo::settleRemoved(const WorkspaceRemoval &removal)
{
    const auto *const picture = std::get_if<RemovedPicture>(&removal.item.item);
    if (!picture)
        return;
    std::optional<Failure> failure;
    QString remains;
    try {
        const auto file = MediaRemoval::allowed(m_library.storageFolder(), removal.checkpointID, picture->screenshot)
                              .value_or(QString());
        remains = MediaFolders::leaving(file);
        if (!file.isEmpty())
            failure = isNamed(removal.checkpointID, file) ? MediaRemoval::bringBack(file) : MediaRemoval::discard(file);
    } catch (const Failure &unknown) {
        failure = unknown;
    }
    if (failure)
        m_messages.report(tr("Screenshot removed, but its file could not be deleted from ") + remains + ": " +
                              failure->description(),
                          subjects::about("picture", removal.checkpointID));
}

Outcome RemovalUndo::undoWorkspaceRemoval()
{
    const std::optional<WorkspaceRemoval> removal = lastRemoval();
    const std::optional<Checkpoint> before = removal ? m_library.editable(removal->checkpointID) : std::nullopt;
    if (!before)
        return {};
    const PublishTogether group;
    if (const auto *const picture = std::get_if<RemovedPicture>(&removal->item.item))
        return m_operations.concluded(putPictureBack(*before, *picture));
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
    Outcome outcome = m_library.edit(removal->checkpointID, isLayout ? "layout" : "item", putBack);
    if (outcome)
        lastRemoval.set(std::nullopt);
    return m_operations.concluded(std::move(outcome));
}

// The one that stands in its place goes aside in turn, and can be brought back the same way.
Outcome RemovalUndo::putPictureBack(const Checkpoint &before, const RemovedPicture &picture)
{
    const QString failed = tr("Could not bring the screenshot back: ");
    Outcome outcome{.subject = subjects::about("picture", before.id)};
    std::optional<QString> returning;
    std::optional<QString> displaced;
    std::optional<Failure> failure;
    try {
        returning = MediaRemoval::allowed(m_library.storageFolder(), before.id, picture.screenshot);
        if (before.screenshot)
            displaced = MediaRemoval::allowed(m_library.storageFolder(), before.id, *before.screenshot);
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
    const Library::SettleMedia settle = [&] {
        const auto missing = returning ? MediaRemoval::bringBack(*returning) : std::nullopt;
        if (missing)
            throw Failure(*missing);
    };
    outcome = m_library.edit(before.id, "picture", show, failed, settle);
    if (!outcome) {
        putBack(removal, &outcome);
        return outcome;
    }
    m_media.forgetPictures({before});
    lastRemoval.set(before.screenshot ? std::optional(WorkspaceRemoval{before.id, {RemovedPicture{*before.screenshot}}})
                                      : std::nullopt);
    return outcome;
}

void RemovalUndo::putBack(MediaRemoval &removal, Outcome *outcome)
{
    if (const auto failure = removal.putBack())
        outcome->error = outcome->error.value_or(QString()) + tr(" Some media remains in ") + removal.aside() + ": " +
                         failure->description();
}

} // namespace ardeno
