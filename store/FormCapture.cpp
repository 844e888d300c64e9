// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/FormCapture.h"

#include "store/Newsletter.h"
#include "store/Subjects.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace ardeno {

QCoro::Task<Outcome> FormCapture::captureMoment(QString title, QString next, CaptureKind kind)
{
    return m_parts.operations.carryOut(captureForm(std::move(title), std::move(next), kind));
}

QCoro::Task<Outcome> FormCapture::captureForm(QString title, QString next, CaptureKind kind)
{
    Outcome outcome{.subject = subjects::capture};
    if (m_parts.operations.busy())
        co_return outcome;
    m_parts.drafts.setDraftTitle(title.trimmed());
    m_parts.drafts.setDraftNext(next.trimmed());
    m_parts.drafts.keepRecording(kind == CaptureKind::Session);
    m_parts.screenAccess.refreshScreenAccess();
    if (!m_parts.screenAccess.screenAccessGranted()) {
        outcome.captureIssue = m_parts.screenAccess.screenAccessReason().value_or(
            tr("Screen access needs to be set up before saving. Use Allow screen access once, then finish in System "
               "Settings. Your draft is saved."));
        co_return outcome;
    }
    outcome.captureIssue = m_parts.capture.obstacle(kind);
    const std::optional<QUuid> projectID = outcome.captureIssue ? std::nullopt : draftProject(&outcome);
    if (!projectID)
        co_return outcome;
    const CaptureDrafts &drafts = m_parts.drafts;
    const CaptureRequest request{*projectID, drafts.draftTitle(), drafts.draftNext(), drafts.includeBrowser()};
    savingForm.set(true);
    const auto over = qScopeGuard([this] { savingForm.set(false); });
    const FormInUse form{request.title, request.next, m_parts.sheets.showCapture(), m_parts.sheets.showQuickCapture()};
    Outcome captured = co_await m_parts.capture.capture(request, kind, Audience::Window);
    captured.remarks = outcome.remarks + captured.remarks;
    if (!captured)
        co_return captured;
    finishForm(form);
    if (kind == CaptureKind::Checkpoint)
        m_parts.newsletter.consider();
    co_return captured;
}

std::optional<QUuid> FormCapture::draftProject(Outcome *outcome)
{
    const QList<Project> available = m_parts.library.availableProjects();
    const auto isDraft = [this](const Project &project) { return project.id == m_parts.drafts.draftProjectID(); };
    if (std::any_of(available.begin(), available.end(), isDraft))
        return m_parts.drafts.draftProjectID();
    if (m_parts.drafts.draftProjectName().trimmed().isEmpty()) {
        outcome->fail(tr("Choose a project or enter a new project name before saving."));
        return std::nullopt;
    }
    const Outcome created = m_parts.projects.makeProject(m_parts.drafts.draftProjectName());
    outcome->remarks += created.remarks;
    if (created) {
        m_parts.projects.beginWith(*created);
        m_parts.drafts.setDraftProjectName({}); // The next new project has another name.
    } else if (created.error) {
        outcome->fail(*created.error);
    }
    return created.id;
}

// What has been typed or opened meanwhile is for the next one.
void FormCapture::finishForm(const FormInUse &saved)
{
    const PublishTogether group;
    m_parts.drafts.clear(saved.title, saved.next);
    if (saved.hasSheet)
        m_parts.sheets.close(&OpenSheets::showCapture);
    if (saved.hasPanel)
        m_parts.sheets.close(&OpenSheets::showQuickCapture);
}

} // namespace ardeno
