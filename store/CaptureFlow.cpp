// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/CaptureFlow.h"

#include "store/Subjects.h"
#include "store/UnsavedMedia.h"

#include <QScopeGuard>

#include <utility>

namespace ardeno {

namespace {

Checkpoint newCheckpoint(const CaptureRequest &request)
{
    Checkpoint checkpoint;
    const QString title = request.title.trimmed();
    checkpoint.title = title.isEmpty() ? u"Checkpoint · "_qs + DateText::shortTime(checkpoint.createdAt) : title;
    checkpoint.nextStep = request.next.trimmed();
    checkpoint.projectID = request.projectID;
    return checkpoint;
}

} // namespace

QCoro::Task<Outcome> CaptureFlow::saveMoment(CaptureRequest request, Audience audience)
{
    return m_parts.operations.carryOut(capture(std::move(request), CaptureKind::Checkpoint, audience), audience);
}

QCoro::Task<Outcome> CaptureFlow::startSession(CaptureRequest request, Audience audience)
{
    return m_parts.operations.carryOut(capture(std::move(request), CaptureKind::Session, audience), audience);
}

std::optional<QString> CaptureFlow::obstacle(CaptureKind kind)
{
    std::optional<QString> obstacle = m_parts.rules.exclusionsObstacle();
    if (kind == CaptureKind::Session && !obstacle)
        obstacle = m_parts.recorder.sessionObstacle();
    return obstacle;
}

QCoro::Task<Outcome> CaptureFlow::capture(CaptureRequest request, CaptureKind kind, Audience audience)
{
    Outcome outcome{.subject = subjects::capture};
    if (m_parts.operations.busy())
        co_return outcome;
    outcome.captureIssue = obstacle(kind);
    if (outcome.captureIssue)
        co_return outcome;
    m_parts.operations.setBusy(true);
    const auto idle = qScopeGuard([this] { m_parts.operations.setBusy(false); });
    Checkpoint checkpoint = newCheckpoint(request);
    UnsavedMedia media(m_parts.library.storageFolder(), checkpoint.id);
    OwnedCheckpoint captured;
    bool isOrphan = false;
    try {
        media.create();
        co_await m_parts.collector.fill(&checkpoint, media.folder(), request.includeBrowser);
        captured = m_parts.library.owned(checkpoint);
        isOrphan = m_parts.library.isLibraryRead() && !captured.project;
        if (!isOrphan && kind == CaptureKind::Session)
            co_await m_parts.recorder.begin(captured, m_parts.rules.exclusions().appIDs(), &media);
    } catch (...) {
        outcome.captureIssue = tr("Capture could not finish. Your draft is safe. Check Screen Recording settings; if "
                                  "access was just enabled, quit and reopen this app, then try again. ") +
                               Failure::current().description();
        co_return outcome;
    }
    if (isOrphan) { // Nobody makes another project for it.
        outcome.captureIssue = tr("The project was deleted meanwhile, so nothing was saved. Your draft is safe.");
        co_return outcome;
    }
    finishCapture(captured, kind, audience, &media, &outcome);
    co_return outcome;
}

// What was captured goes into the library, or is being recorded by now.
void CaptureFlow::finishCapture(const OwnedCheckpoint &captured, CaptureKind kind, Audience audience,
                                UnsavedMedia *media, Outcome *outcome)
{
    const Library::SettleMedia settle = [media] {
        media->keep(); // Whatever becomes of the folder's name.
        media->adopt();
    };
    if (kind == CaptureKind::Session) {
        if (!m_parts.recorder.recordingFailure()) // It may have broken off already.
            outcome->notice = tr("Recording your main display. Stop any time from the menu bar.");
    } else if (m_parts.library.write(captured, outcome, settle)) {
        outcome->notice = tr("Checkpoint saved.");
        if (audience == Audience::Window)
            m_parts.navigation.show(captured.checkpoint);
    } else {
        return;
    }
    outcome->isDone = true;
    outcome->id = captured.checkpoint.id;
}

} // namespace ardeno
