// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/CaptureRequest.h"
#include "store/SessionRecorder.h"
#include "store/WorkspaceCollector.h"

namespace ardeno {

// Saves a checkpoint of the workspace, or starts a recorded session with one; both without the form, whose drafts stay
// as they are.
class CaptureFlow final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::CaptureFlow)

public:
    struct Parts {
        Operations &operations;
        Library &library;
        Navigation &navigation;
        ExclusionRules &rules;
        WorkspaceCollector &collector;
        SessionRecorder &recorder;
    };

    explicit CaptureFlow(Parts parts) : m_parts(parts) {}

    // The id is that of the checkpoint.
    QCoro::Task<Outcome> saveMoment(CaptureRequest request, Audience audience = Audience::Window);
    // The id is that of the session's checkpoint, which is saved when it is stopped.
    QCoro::Task<Outcome> startSession(CaptureRequest request, Audience audience = Audience::Window);

    // Why nothing of the kind can be captured now.
    std::optional<QString> obstacle(CaptureKind kind);
    // Either, for whoever goes on with it: not concluded.
    QCoro::Task<Outcome> capture(CaptureRequest request, CaptureKind kind, Audience audience);

private:
    void finishCapture(const OwnedCheckpoint &captured, CaptureKind kind, Audience audience, UnsavedMedia *media,
                       Outcome *outcome);

    Parts m_parts;
};

} // namespace ardeno
