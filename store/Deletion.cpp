// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/AppStore.h"
#include "store/MediaStaging.h"
#include "store/PreferenceKeys.h"
#include "store/ProjectOrder.h"
#include "support/Identifiers.h"

namespace ardeno {

void AppStore::reportRemainingMedia(const QString &prefix, const QString &folder, const Failure &failure)
{
    error.set(prefix + folder + ": " + failure.description());
}

void AppStore::deleteProject(QUuid id)
{
    clearMessages();
    if (!project(id))
        return;
    if (m_active && m_active->projectID == id) {
        error.set(tr("Finish the recording before deleting its project."));
        return;
    }
    QList<Checkpoint> gone;
    WorkspaceLibrary changed = library();
    changed.projects.removeIf([&](const Project &project) { return project.id == id; });
    changed.checkpoints.removeIf([&](const Checkpoint &checkpoint) {
        if (checkpoint.projectID != id)
            return false;
        gone.append(checkpoint);
        return true;
    });
    const QString failed = tr("Could not delete the project: ");
    std::optional<MediaStaging> staging;
    try {
        staging.emplace(m_repository.root(), idsOf(gone).values());
    } catch (const Failure &failure) {
        error.set(failed + failure.description());
        return;
    }
    if (!commit(std::move(changed), failed)) {
        if (const auto failure = staging->putBack())
            reportRemainingMedia(*error() + tr(" Some media remains in "), staging->folder(), *failure);
        return;
    }
    forgetProject(id);
    forgetPictures(gone);
    if (const auto failure = staging->remove())
        reportRemainingMedia(tr("Project deleted, but some local media could not be removed from "), staging->folder(),
                             *failure);
}

void AppStore::forgetProject(QUuid id)
{
    const PublishTogether group;
    if (selectedProjectID() == id) {
        setSelectedProjectID(std::nullopt);
        selection.set(std::nullopt);
    }
    if (m_preferences.value(keys::lastOpenedProjectID) == uuidText(id))
        m_preferences.remove(keys::lastOpenedProjectID);
    if (draftProjectID() == id)
        draftProjectID.set(std::nullopt);
    if (deletingProject() && deletingProject()->id == id)
        deletingProject.set(std::nullopt);
    if (editingBlocker() && editingBlocker()->id == id)
        editingBlocker.set(std::nullopt);
    if (lastRemoval() && !checkpoint(lastRemoval()->checkpointID))
        lastRemoval.set(std::nullopt);
}

void AppStore::deleteCheckpoint(QUuid id)
{
    clearMessages();
    if (m_active && m_active->id == id) {
        error.set(tr("Finish the recording before deleting its checkpoint."));
        return;
    }
    const Checkpoint *const found = checkpoint(id);
    if (!found)
        return;
    const Checkpoint gone = *found;
    const QList<Checkpoint> timeline = checkpointsFor(found->projectID.value_or(QUuid()));
    WorkspaceLibrary changed = library();
    changed.checkpoints.removeIf([&](const Checkpoint &candidate) { return candidate.id == id; });
    if (!commit(std::move(changed), tr("Could not delete the checkpoint: ")))
        return;
    if (selection() == id)
        selection.set(ProjectOrder::neighbour(timeline, id));
    if (lastRemoval() && lastRemoval()->checkpointID == id)
        lastRemoval.set(std::nullopt);
    forgetPictures({gone});
    try {
        m_repository.removeFiles(id);
    } catch (const Failure &failure) {
        reportRemainingMedia(tr("Checkpoint deleted, but some local media could not be removed from "),
                             m_repository.root() + '/' + uuidText(id), failure);
    }
}

} // namespace ardeno
