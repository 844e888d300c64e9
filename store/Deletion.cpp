// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/Deletion.h"

#include "store/MediaFolders.h"
#include "store/MediaStaging.h"
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
bool Deletion::commitDeletion(const TakeCheckpoints &take, const Texts &texts, Outcome *outcome)
{
    std::optional<MediaStaging> staging;
    const auto setAside = [&](WorkspaceLibrary &library) {
        // The library has been read again, and others may be gone with it.
        if (const auto remains = staging ? staging->putBack() : std::nullopt)
            throw Failure(remains->reason);
        staging.emplace(m_parts.library.storageFolder());
        const std::optional<QSet<QUuid>> gone = take(library);
        for (const QUuid &id : gone.value_or(QSet<QUuid>()))
            staging->add(MediaFolders::own(m_parts.library.storageFolder(), id), id);
        return gone.has_value();
    };
    if (!m_parts.library.commit(setAside, texts.failed, outcome)) {
        if (const auto remains = staging ? staging->putBack() : std::nullopt)
            outcome->error = outcome->error.value_or(QString()) + tr(" Some media remains in ") + remaining(*remains);
        return false;
    }
    if (const auto remains = staging->remove())
        outcome->fail(texts.remains + remaining(*remains));
    return true;
}

Outcome Deletion::deleteProject(QUuid id)
{
    Outcome outcome{.subject = subjects::about("delete project", id)};
    const std::optional<OwnedCheckpoint> &active = m_parts.recorder.active();
    if (active && active->checkpoint.projectID == id) {
        outcome.subject = subjects::whileRecording;
        outcome.fail(tr("Finish the recording before deleting its project."));
        return m_parts.operations.concluded(std::move(outcome));
    }
    QList<Checkpoint> gone;
    const auto take = [&](WorkspaceLibrary &library) -> std::optional<QSet<QUuid>> {
        if (library.projects.removeIf([&](const Project &project) { return project.id == id; }) == 0)
            return std::nullopt;
        gone = takeCheckpoints(library, id);
        return idsOf(gone);
    };
    const Texts texts{tr("Could not delete the project: "),
                      tr("Project deleted, but some local media could not be removed from ")};
    outcome.isDone = commitDeletion(take, texts, &outcome);
    if (outcome) {
        forgetProject(id);
        m_parts.media.forgetPictures(gone);
    }
    return m_parts.operations.concluded(std::move(outcome));
}

void Deletion::forgetProject(QUuid id)
{
    const PublishTogether group;
    m_parts.navigation.forgetProject(id);
    m_parts.forget(id);
    m_parts.removals.look();
}

Outcome Deletion::deleteCheckpoint(QUuid id)
{
    Outcome outcome{.subject = subjects::about("delete checkpoint", id)};
    const std::optional<OwnedCheckpoint> &active = m_parts.recorder.active();
    if (active && active->checkpoint.id == id) {
        outcome.subject = subjects::whileRecording;
        outcome.fail(tr("Finish the recording before deleting its checkpoint."));
        return m_parts.operations.concluded(std::move(outcome));
    }
    const Checkpoint *const found = m_parts.library.checkpoint(id);
    if (!found)
        return outcome;
    const Checkpoint gone = *found;
    const QList<Checkpoint> timeline = m_parts.library.checkpointsFor(found->projectID.value_or(QUuid()));
    const auto take = [&](WorkspaceLibrary &library) -> std::optional<QSet<QUuid>> {
        if (library.checkpoints.removeIf([&](const Checkpoint &candidate) { return candidate.id == id; }) == 0)
            return std::nullopt;
        return QSet<QUuid>{id};
    };
    const Texts texts{tr("Could not delete the checkpoint: "),
                      tr("Checkpoint deleted, but some local media could not be removed from ")};
    outcome.isDone = commitDeletion(take, texts, &outcome);
    if (!outcome)
        return m_parts.operations.concluded(std::move(outcome));
    if (m_parts.navigation.selection() == id)
        m_parts.navigation.selectCheckpoint(ProjectOrder::neighbour(timeline, id));
    m_parts.removals.look();
    m_parts.media.forgetPictures({gone});
    return m_parts.operations.concluded(std::move(outcome));
}

} // namespace ardeno
