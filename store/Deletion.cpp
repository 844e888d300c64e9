// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/AppStore.h"
#include "store/MediaFolders.h"
#include "store/MediaStaging.h"
#include "store/PreferenceKeys.h"
#include "store/ProjectOrder.h"
#include "support/Identifiers.h"

namespace ardeno {

void AppStore::reportRemainingMedia(const QString &prefix, const QString &path, const Failure &failure)
{
    error.set(prefix + path + ": " + failure.description());
}

// The media go aside first: cut short at any moment, the library says at the next start whether they come back.
bool AppStore::commitDeletion(WorkspaceLibrary library, const QSet<QUuid> &gone, const QString &failurePrefix,
                              const QString &remainsPrefix)
{
    MediaStaging staging(m_repository.root());
    bool isAside = true;
    for (auto id = gone.begin(); isAside && id != gone.end(); ++id) {
        const auto failure = staging.add(MediaFolders::own(m_repository.root(), *id), *id);
        isAside = !failure;
        if (failure)
            error.set(failurePrefix + failure->description());
    }
    if (!isAside || !commit(std::move(library), failurePrefix)) {
        if (const auto remains = staging.putBack())
            reportRemainingMedia(*error() + tr(" Some media remains in "), remains->folder, remains->reason);
        return false;
    }
    if (const auto remains = staging.remove())
        reportRemainingMedia(remainsPrefix, remains->folder, remains->reason);
    return true;
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
    if (!commitDeletion(std::move(changed), idsOf(gone), tr("Could not delete the project: "),
                        tr("Project deleted, but some local media could not be removed from ")))
        return;
    forgetProject(id);
    forgetPictures(gone);
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
    if (!commitDeletion(std::move(changed), {id}, tr("Could not delete the checkpoint: "),
                        tr("Checkpoint deleted, but some local media could not be removed from ")))
        return;
    if (selection() == id)
        selection.set(ProjectOrder::neighbour(timeline, id));
    if (lastRemoval() && lastRemoval()->checkpointID == id)
        lastRemoval.set(std::nullopt);
    forgetPictures({gone});
}

} // namespace ardeno
