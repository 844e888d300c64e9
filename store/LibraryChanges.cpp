// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/LibraryFailure.h"
#include "store/AppStore.h"
#include "store/PreferenceKeys.h"
#include "store/ProjectOrder.h"
#include "store/SessionJournal.h"
#include "store/Subjects.h"
#include "support/Identifiers.h"

#include <QCoroFuture>
#include <QPromise>
#include <QScopeGuard>

#include <algorithm>
#include <exception>
#include <utility>

namespace ardeno {

namespace {

bool isChangedElsewhere(const Failure &failure)
{
    return failure.domain() == "Library" && failure.code() == static_cast<int>(LibraryFailure::Changed);
}

} // namespace

// What belongs to another page than the one that is shown by now would stand there under the wrong name.
bool AppStore::isShown(const Outcome &outcome) const
{
    return !outcome.checkpointID || !checkpoint(*outcome.checkpointID) || selection() == outcome.checkpointID;
}

template <typename Result>
Result AppStore::concluded(Result outcome, Audience audience)
{
    const PublishTogether group;
    if (audience == Audience::Window) {
        if (outcome.captureIssue)
            captureIssue.set(outcome.captureIssue);
        Outcome told = outcome;
        if (!isShown(outcome))
            told.notice.reset();
        tell(told);
        return outcome;
    }
    for (const Remark &each : outcome.remarks) // They are about the library, which is the window's as well.
        remark(each);
    return outcome;
}

template <typename Result>
QCoro::Task<Result> AppStore::carryOut(QCoro::Task<Result> work, Audience audience)
{
    ++m_running;
    working.set(true);
    const auto ended = qScopeGuard([this] { working.set(--m_running > 0); });
    Result outcome;
    try {
        outcome = co_await work;
    } catch (...) {
        outcome.fail(tr("This could not be finished: ") + Failure::current().description());
    }
    co_return concluded(std::move(outcome), audience);
}

template Outcome AppStore::concluded(Outcome outcome, Audience audience);
template ResumeOutcome AppStore::concluded(ResumeOutcome outcome, Audience audience);
template QCoro::Task<Outcome> AppStore::carryOut(QCoro::Task<Outcome> work, Audience audience);
template QCoro::Task<ResumeOutcome> AppStore::carryOut(QCoro::Task<ResumeOutcome> work, Audience audience);

WorkspaceLibrary AppStore::library() const
{
    return {WorkspaceLibrary::currentVersion, projects(), checkpoints()};
}

void AppStore::publish(WorkspaceLibrary library)
{
    const PublishTogether group; // No observer sees half of the change.
    projects.publish(std::move(library.projects));
    checkpoints.publish(std::move(library.checkpoints));
    m_isLibraryRead = true;
    if (selectedProjectID() && !selectedProject()) { // As the sample goes with the first project.
        setSelectedProjectID(std::nullopt);
        setSelection(std::nullopt);
    }
}

bool AppStore::commit(const Change &change, const QString &failurePrefix, Outcome *outcome, const SettleMedia &settle)
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

void AppStore::addUnsavedSessions(WorkspaceLibrary *library) const
{
    const QSet<QUuid> existing = idsOf(library->checkpoints);
    for (const OwnedCheckpoint &session : std::as_const(m_unsavedSessions)) {
        if (existing.contains(session.checkpoint.id))
            continue;
        library->checkpoints.prepend(session.checkpoint);
        if (session.project)
            library->checkpoints.first().projectID = ProjectOrder::adopt(&library->projects, *session.project);
    }
}

bool AppStore::writeChanged(const Change &change, Outcome *outcome, const SettleMedia &settle)
{
    WorkspaceLibrary changed = library();
    if (!change(changed)) {
        if (!outcome->remarks.isEmpty()) // It was there before the library was read again.
            outcome->fail(tr("What you wanted to change is no longer in the library."));
        return false;
    }
    addUnsavedSessions(&changed);
    changed.assignMissingProjects(); // What is published is what is written.
    m_beforeWrite();
    const LibraryWrite written = m_repository.saveLibrary(changed);
    if (written.keptCopy)
        outcome->remarks += keptCopy(*written.keptCopy, m_isLibraryRead ? Successor::FromMemory : Successor::Empty);
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
    sessionsSaved(changed, outcome);
    publish(std::move(changed));
    resolve(subjects::library);
    return true;
}

Remark AppStore::keptCopy(const QString &path, Successor successor)
{
    const QString sentence =
        successor == Successor::Empty
            ? tr("Your saved checkpoints could not be read. The file is kept as %1, and a new library has been begun.")
            : tr("Your library was damaged by another program. What it held is kept as %1, and your checkpoints have "
                 "been written anew.");
    return {.sentence = sentence.arg(path), .subject = path, .file = path};
}

// Whoever does not see the message now sees it at the next start.
void AppStore::keepCopiesInMind()
{
    QStringList shown;
    for (const Remark &remark : remarks()) {
        if (remark.file)
            shown += *remark.file;
    }
    const QStringList before = std::exchange(m_shownCopies, shown);
    if (shown == before)
        return;
    QStringList kept = m_preferences.value(keys::keptCopies).value_or(QStringList());
    kept.removeIf([&](const QString &path) { return before.contains(path) || shown.contains(path); });
    m_preferences.setValue(keys::keptCopies, kept + shown);
}

// Somebody else has put another library there: it counts, and what this program remembered of the former one does not.
void AppStore::readAgain(Outcome *outcome)
{
    WorkspaceLibrary found = m_repository.loadLibrary();
    if (!m_repository.hasFile())
        return; // It has gone again: what is in memory may be the only copy.
    const bool wasRead = m_isLibraryRead;
    publish(std::move(found));
    const PublishTogether group;
    if (selectedProjectID() && !selectedProject())
        setSelectedProjectID(std::nullopt);
    if (selection() && !selected())
        setSelection(selectedProjectID() ? ProjectOrder::newest(checkpoints(), *selectedProjectID()) : std::nullopt);
    if (lastRemoval() && !isUndoable(*lastRemoval()))
        remember(std::nullopt);
    if (lastArchiving() && !project(lastArchiving()->projectID))
        lastArchiving.set(std::nullopt);
    outcome->remarks +=
        Remark{.sentence = wasRead ? tr("Your library was replaced by another program, so it has been read again.")
                                   : tr("Your saved checkpoints could not be read at first. They have been read now."),
               .subject = "replaced"};
}

QCoro::Task<void> AppStore::whenIdle()
{
    while (busy()) {
        QPromise<void> promise;
        promise.start();
        const QFuture<void> changed = promise.future();
        const QPropertyNotifier notifier = busy.addNotifier([&promise] { promise.finish(); });
        co_await changed;
    }
}

} // namespace ardeno
