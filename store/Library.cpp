// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/Library.h"

#include "model/LibraryFailure.h"
#include "store/KeptCopies.h"
#include "store/MediaFolders.h"
#include "store/MediaRecovery.h"
#include "store/ProjectOrder.h"
#include "store/Subjects.h"
#include "store/UnsavedSessions.h"

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

template <typename Record>
const Record *find(const QList<Record> &records, const QUuid &id)
{
    const auto found =
        std::find_if(records.begin(), records.end(), [&](const Record &record) { return record.id == id; });
    return found == records.end() ? nullptr : &*found;
}

bool isChangedElsewhere(const Failure &failure)
{
    return failure.domain() == "Library" && failure.code() == static_cast<int>(LibraryFailure::Changed);
}

} // namespace

Library::Library(CheckpointRepository repository, BeforeWrite beforeWrite, Messages &messages, UnsavedSessions &unsaved,
                 Followers followers)
    : m_repository(std::move(repository)),
      m_beforeWrite(std::move(beforeWrite)),
      m_messages(messages),
      m_unsaved(unsaved),
      m_followers(std::move(followers))
{
}

void Library::read(const std::function<WorkspaceLibrary()> &load)
{
    for (const QString &sentence : m_repository.warnings())
        m_messages.remark({.sentence = sentence});
    try {
        WorkspaceLibrary library = load ? load() : m_repository.loadLibrary();
        publish(std::move(library));
    } catch (const Failure &failure) {
        m_messages.report(tr("Your saved checkpoints could not be read. Existing files have been left in place. ") +
                              failure.description(),
                          subjects::library);
    }
}

void Library::prepareSamples()
{
    // Where the library could not be read there may be projects; samples would hide that.
    if (!m_isLibraryRead)
        return;
    m_sampleProject = Project::sample();
    sampleHistory.set(Checkpoint::sampleHistory());
    sampleCheckpoint.set(sampleHistory().first());
}

bool Library::isShowingSamples() const
{
    return projects().isEmpty() && !sampleHistory().isEmpty();
}

const Project *Library::project(const QUuid &id) const
{
    return find(projects(), id);
}

const Checkpoint *Library::checkpoint(const QUuid &id) const
{
    return find(checkpoints(), id);
}

QList<Project> Library::availableProjects() const
{
    QList<Project> available = projects();
    available.removeIf([](const Project &project) { return project.archivedAt.has_value(); });
    return available;
}

QList<Checkpoint> Library::checkpointsFor(const QUuid &projectID) const
{
    return m_histories.of(projectID, isShowingSamples() ? sampleHistory() : checkpoints());
}

std::optional<Checkpoint> Library::editable(const QUuid &id) const
{
    const Checkpoint *const found = checkpoint(id);
    return found && !found->isSample ? std::optional(*found) : std::nullopt;
}

OwnedCheckpoint Library::owned(const Checkpoint &checkpoint) const
{
    const Project *const known = checkpoint.projectID ? project(*checkpoint.projectID) : nullptr;
    return {checkpoint, known ? std::optional(*known) : std::nullopt};
}

QString Library::mediaFolder(const QUuid &checkpointID) const
{
    QString folder = m_repository.directory(checkpointID);
    if (!MediaFolders::isFolder(folder))
        throw Failure::system(ENOTDIR, uuidText(checkpointID));
    return folder;
}

QSet<QUuid> Library::resolveMedia() const
{
    return MediaRecovery::resolve(m_repository.root(), m_repository.hasFile() ? &checkpoints() : nullptr);
}

void Library::discardUnsaved() const
{
    if (m_isLibraryRead)
        resolveMedia();
}

void Library::publish(WorkspaceLibrary library)
{
    const PublishTogether group; // No observer sees half of the change.
    projects.publish(std::move(library.projects));
    checkpoints.publish(std::move(library.checkpoints));
    m_isLibraryRead = true;
    m_followers.published();
}

bool Library::commit(const Change &change, const QString &failurePrefix, Outcome *outcome, const SettleMedia &settle)
{
    constexpr int mostAttempts = 5; // Whoever writes all the time without the lock is not waited for.
    try {
        for (int attempt = 1;; ++attempt) {
            try {
                return writeChanged(change, outcome, settle);
            } catch (const Failure &failure) {
                if (!isChangedElsewhere(failure) || attempt == mostAttempts)
                    throw;
            }
            readAgain(outcome);
        }
    } catch (...) {
        outcome->fail(failurePrefix + Failure::current().description());
        return false;
    }
}

bool Library::writeChanged(const Change &change, Outcome *outcome, const SettleMedia &settle)
{
    WorkspaceLibrary changed{WorkspaceLibrary::currentVersion, projects(), checkpoints()};
    if (!change(changed)) {
        if (!outcome->remarks.isEmpty()) // It was there before the library was read again.
            outcome->fail(tr("What you wanted to change is no longer in the library."));
        return false;
    }
    m_unsaved.addTo(&changed);
    changed.assignMissingProjects(); // What is published is what is written.
    m_beforeWrite();
    const LibraryWrite written = m_repository.saveLibrary(changed);
    if (written.keptCopy)
        outcome->remarks += KeptCopies::remark(*written.keptCopy, m_isLibraryRead ? KeptCopies::Replacement::FromMemory
                                                                                  : KeptCopies::Replacement::Empty);
    if (!written.isDurable)
        outcome->remarks += Remark{.sentence = tr("The last change was written, but the system could not confirm that "
                                                  "it would survive a power failure."),
                                   .subject = "durable"};
    try {
        if (settle)
            settle();
    } catch (const Failure &failure) {
        outcome->fail(tr("Saved, but its media could not be put in their place, which the next start tries again: ") +
                      failure.description());
    }
    m_unsaved.settle(changed, outcome);
    publish(std::move(changed));
    m_messages.resolve(subjects::library);
    return true;
}

// Somebody else has put another library there: it counts, and what this program remembered of the former one does not.
void Library::readAgain(Outcome *outcome)
{
    WorkspaceLibrary found = m_repository.loadLibrary();
    if (!m_repository.hasFile())
        return; // It has gone again: what is in memory may be the only copy.
    const bool wasRead = m_isLibraryRead;
    publish(std::move(found));
    const PublishTogether group;
    m_followers.replaced();
    outcome->remarks +=
        Remark{.sentence = wasRead ? tr("Your library was replaced by another program, so it has been read again.")
                                   : tr("Your saved checkpoints could not be read at first. They have been read now."),
               .subject = "replaced"};
}

bool Library::write(OwnedCheckpoint saved, Outcome *outcome, const SettleMedia &settle)
{
    Checkpoint &checkpoint = saved.checkpoint;
    const auto put = [&](WorkspaceLibrary &library) {
        if (saved.project)
            checkpoint.projectID = ProjectOrder::adopt(&library.projects, *saved.project);
        const auto same = std::find_if(library.checkpoints.begin(), library.checkpoints.end(),
                                       [&](const Checkpoint &existing) { return existing.id == checkpoint.id; });
        if (same == library.checkpoints.end())
            library.checkpoints.prepend(checkpoint);
        else
            *same = checkpoint;
        return true;
    };
    return commit(put, tr("Could not save this checkpoint: "), outcome, settle);
}

// What the user looks at stays as it is: a note may be saved because another checkpoint was chosen.
Outcome Library::edit(QUuid checkpointID, const char *what, const std::function<bool(Checkpoint &)> &change,
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

} // namespace ardeno
