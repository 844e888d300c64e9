// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/AppStore.h"
#include "store/MediaFolders.h"
#include "store/MediaStaging.h"
#include "store/PreferenceKeys.h"
#include "store/ProjectOrder.h"
#include "store/Subjects.h"
#include "support/Identifiers.h"

namespace ardeno {

namespace {

QString remaining(const MediaStaging::Remains &remains)
{
    return remains.folder + ": " + remains.reason.description();
}

QList<Checkpoint> takeCheckpoints(WorkspaceLibrary &library, const QUuid &projectID)
{
    QList<Checkpoint> taken;
    library.checkpoints.removeIf([&](const Checkpoint &checkpoint) {
        if (checkpoint.projectID != projectID)
            return false;
        taken.append(checkpoint);
        return true;
    });
    return taken;
}

} // namespace

// The media go aside first: cut short at any moment, the library says at the next start whether they come back.
bool AppStore::commitDeletion(const TakeCheckpoints &take, const DeletionTexts &texts, Outcome *outcome)
{
    std::optional<MediaStaging> staging;
    const auto setAside = [&](WorkspaceLibrary &library) {
        // The library has been read again, and others may be gone with it.
        if (const auto remains = staging ? staging->putBack() : std::nullopt)
            throw Failure(remains->reason);
        staging.emplace(m_repository.root());
        const std::optional<QSet<QUuid>> gone = take(library);
        for (const QUuid &id : gone.value_or(QSet<QUuid>()))
            staging->add(MediaFolders::own(m_repository.root(), id), id);
        return gone.has_value();
    };
    if (!commit(setAside, texts.failed, outcome)) {
        if (const auto remains = staging ? staging->putBack() : std::nullopt)
            outcome->error = outcome->error.value_or(QString()) + tr(" Some media remains in ") + remaining(*remains);
        return false;
    }
    if (const auto remains = staging->remove())
        outcome->fail(texts.remains + remaining(*remains));
    return true;
}

Outcome AppStore::deleteProject(QUuid id)
{
    Outcome outcome{.subject = subjects::about("delete project", id)};
    if (m_active && m_active->checkpoint.projectID == id) {
        outcome.subject = subjects::whileRecording;
        outcome.fail(tr("Finish the recording before deleting its project."));
        return concluded(std::move(outcome));
    }
    QList<Checkpoint> gone;
    const auto take = [&](WorkspaceLibrary &library) -> std::optional<QSet<QUuid>> {
        if (library.projects.removeIf([&](const Project &project) { return project.id == id; }) == 0)
            return std::nullopt;
        gone = takeCheckpoints(library, id);
        return idsOf(gone);
    };
    const DeletionTexts texts{tr("Could not delete the project: "),
                              tr("Project deleted, but some local media could not be removed from ")};
    outcome.isDone = commitDeletion(take, texts, &outcome);
    if (outcome) {
        forgetProject(id);
        forgetPictures(gone);
    }
    return concluded(std::move(outcome));
}

void AppStore::forgetProject(QUuid id)
{
    const PublishTogether group;
    if (selectedProjectID() == id) {
        setSelectedProjectID(std::nullopt);
        setSelection(std::nullopt);
    }
    if (m_preferences.value(keys::lastOpenedProjectID) == uuidText(id))
        m_preferences.remove(keys::lastOpenedProjectID);
    if (draftProjectID() == id)
        draftProjectID.set(std::nullopt);
    if (deletingProject() && deletingProject()->id == id)
        deletingProject.set(std::nullopt);
    if (editingBlocker() && editingBlocker()->id == id)
        editingBlocker.set(std::nullopt);
    if (lastArchiving() && lastArchiving()->projectID == id)
        lastArchiving.set(std::nullopt);
    if (lastRemoval() && !isUndoable(*lastRemoval()))
        remember(std::nullopt);
}

Outcome AppStore::deleteCheckpoint(QUuid id)
{
    Outcome outcome{.subject = subjects::about("delete checkpoint", id)};
    if (m_active && m_active->checkpoint.id == id) {
        outcome.subject = subjects::whileRecording;
        outcome.fail(tr("Finish the recording before deleting its checkpoint."));
        return concluded(std::move(outcome));
    }
    const Checkpoint *const found = checkpoint(id);
    if (!found)
        return outcome;
    const Checkpoint gone = *found;
    const QList<Checkpoint> timeline = checkpointsFor(found->projectID.value_or(QUuid()));
    const auto take = [&](WorkspaceLibrary &library) -> std::optional<QSet<QUuid>> {
        if (library.checkpoints.removeIf([&](const Checkpoint &candidate) { return candidate.id == id; }) == 0)
            return std::nullopt;
        return QSet<QUuid>{id};
    };
    const DeletionTexts texts{tr("Could not delete the checkpoint: "),
                              tr("Checkpoint deleted, but some local media could not be removed from ")};
    outcome.isDone = commitDeletion(take, texts, &outcome);
    if (!outcome)
        return concluded(std::move(outcome));
    if (selection() == id)
        setSelection(ProjectOrder::neighbour(timeline, id));
    if (lastRemoval() && !isUndoable(*lastRemoval()))
        remember(std::nullopt);
    forgetPictures({gone});
    return concluded(std::move(outcome));
}

} // namespace ardeno
