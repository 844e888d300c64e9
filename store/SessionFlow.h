// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/CaptureDrafts.h"
#include "store/SessionEnd.h"
#include "store/SessionRecorder.h"
#include "store/UnsavedSessions.h"

namespace ardeno {

// Ends recorded work sessions, also those that something else has ended.
class SessionFlow final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::SessionFlow)

public:
    struct Parts {
        Operations &operations;
        Messages &messages;
        Library &library;
        UnsavedSessions &unsaved;
        SessionRecorder &recorder;
        SessionEnd &end;
        const CaptureDrafts &drafts;
        // Shows a session that was stopped in the window.
        std::function<void(const Checkpoint &saved)> show;
    };

    explicit SessionFlow(Parts parts) : m_parts(std::move(parts)) {}

    // Ends the session and saves its checkpoint, whose id it gives; waits for what is under way. Without a session
    // nothing happens.
    QCoro::Task<Outcome> stop(Audience audience = Audience::Window);
    // Tries again to save the checkpoints of sessions that could not be written. Every other change tries it, too.
    Outcome saveUnsavedSessions();
    // Saves the checkpoints of sessions that were cut short, whose journals are in these folders.
    void recoverSessions(const QSet<QUuid> &journals);

private:
    QCoro::Task<Outcome> stopSession(Audience audience);
    void endSession();
    void saveSession(const OwnedCheckpoint &session, Audience audience, Outcome *outcome);
    QList<Checkpoint> interruptedSessions(const QSet<QUuid> &journals, Outcome *outcome) const;

    Parts m_parts;
};

} // namespace ardeno
