// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/SessionFlow.h"

#include "store/MediaFolders.h"
#include "store/SessionJournal.h"
#include "store/Subjects.h"

#include <QScopeGuard>

#include <utility>

namespace ardeno {

QCoro::Task<Outcome> SessionFlow::stop(Audience audience)
{
    return m_parts.operations.carryOut(stopSession(audience), audience);
}

QCoro::Task<Outcome> SessionFlow::stopSession(Audience audience)
{
    Outcome outcome{.subject = subjects::recording};
    co_await m_parts.operations.whenIdle();
    if (!m_parts.recorder.recording() || !m_parts.recorder.active())
        co_return outcome;
    m_parts.operations.setBusy(true);
    const auto over = qScopeGuard([this] { endSession(); });
    OwnedCheckpoint session = *m_parts.recorder.active();
    const std::optional<QString> problem = co_await m_parts.recorder.finishVideo(&session.checkpoint);
    if (problem)
        outcome.fail(*problem);
    co_await m_parts.end.capture(&session.checkpoint, m_parts.drafts.includeBrowser());
    outcome.id = session.checkpoint.id;
    saveSession(session, audience, &outcome);
    co_return outcome;
}

void SessionFlow::endSession()
{
    const PublishTogether group;
    m_parts.recorder.end();
    m_parts.operations.setBusy(false);
}

void SessionFlow::saveSession(const OwnedCheckpoint &session, Audience audience, Outcome *outcome)
{
    const Checkpoint &checkpoint = session.checkpoint;
    const QString folder = MediaFolders::own(m_parts.library.storageFolder(), checkpoint.id);
    try {
        SessionJournal::write(m_parts.library.mediaFolder(checkpoint.id),
                              checkpoint); // Should the library refuse, the next start tries again.
    } catch (const Failure &) {
        // The journal of the start is still there.
    }
    if (!m_parts.library.write(session, outcome)) {
        outcome->remarks += m_parts.unsaved.keep(session);
        return;
    }
    SessionJournal::remove(folder);
    outcome->isDone = true;
    outcome->notice = tr("Recording stopped and checkpoint saved. Add a next step to make returning easier.");
    if (audience == Audience::Caller)
        return;
    m_parts.show(checkpoint);
}

Outcome SessionFlow::saveUnsavedSessions()
{
    Outcome outcome{.subject = "unsaved sessions"};
    const auto nothingElse = [this](const WorkspaceLibrary &) { return !m_parts.unsaved.isEmpty(); };
    outcome.isDone = m_parts.library.commit(nothingElse, tr("Could not save this checkpoint: "), &outcome);
    return m_parts.operations.concluded(std::move(outcome));
}

QList<Checkpoint> SessionFlow::interruptedSessions(const QSet<QUuid> &journals, Outcome *outcome) const
{
    QList<Checkpoint> interrupted;
    for (const QUuid &id : journals) {
        const QString folder = MediaFolders::own(m_parts.library.storageFolder(), id);
        if (m_parts.library.checkpoint(id)) { // Its journal was left behind alone.
            SessionJournal::remove(folder);
            continue;
        }
        try {
            interrupted.append(SessionJournal::read(m_parts.library.storageFolder(), id));
        } catch (const Failure &failure) {
            const QString sentence = tr("A work session was interrupted. What is kept of it in %1 could not be read, "
                                        "which the next start tries again: %2");
            outcome->remarks += Remark{.sentence = sentence.arg(folder, failure.description()),
                                       .subject = subjects::about("session", id)};
        }
    }
    return interrupted;
}

void SessionFlow::recoverSessions(const QSet<QUuid> &journals)
{
    Outcome outcome;
    const QList<Checkpoint> interrupted = interruptedSessions(journals, &outcome);
    const auto add = [&](WorkspaceLibrary &library) {
        library.checkpoints = interrupted + library.checkpoints;
        return true;
    };
    if (!interrupted.isEmpty() &&
        !m_parts.library.commit(add, tr("Could not save an interrupted work session: "), &outcome)) {
        for (const Checkpoint &session : interrupted)
            outcome.remarks += m_parts.unsaved.keep(m_parts.library.owned(session));
        m_parts.messages.tell(outcome);
        return;
    }
    for (const Checkpoint &session : interrupted) {
        SessionJournal::remove(MediaFolders::own(m_parts.library.storageFolder(), session.id));
        Remark remark = UnsavedSessions::saved(session);
        if (!session.captureNote.startsWith(SessionEnd::note)) // Else it was stopped, and only could not be written.
            remark.sentence =
                tr("Your work session “%1” was interrupted. Its checkpoint has been saved with what was recorded.")
                    .arg(session.title);
        outcome.remarks += remark;
    }
    m_parts.messages.tell(outcome);
}

} // namespace ardeno
