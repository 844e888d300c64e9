// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/AppStore.h"
#include "store/PreferenceKeys.h"
#include "store/Subjects.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace ardeno {

void AppStore::requestCapture(CaptureKind kind, CaptureForm form)
{
    const auto isAvailable = [this](const std::optional<QUuid> &id) {
        const Project *const found = id ? project(*id) : nullptr;
        return found && !found->archivedAt;
    };
    if (form == CaptureForm::Sheet && isAvailable(selectedProjectID())) {
        draftProjectID.set(selectedProjectID()); // It is opened on the page of that project.
    } else if (!isAvailable(draftProjectID())) {
        const QUuid last(m_preferences.value(keys::lastOpenedProjectID).value_or(QString()));
        draftProjectID.set(isAvailable(last) ? std::optional(last) : std::nullopt);
    }
    pendingRecording.set(kind == CaptureKind::Session);
    m_preferences.setValue(keys::captureDraftRecording, pendingRecording());
    captureIssue.set(std::nullopt); // What was said elsewhere, as of a session, is not about this form.
    refreshScreenAccess();
    (form == CaptureForm::QuickPanel ? showQuickCapture : showCapture).set(true);
}

void AppStore::cancelCapture()
{
    const PublishTogether group;
    showCapture.set(false);
    showQuickCapture.set(false);
    captureIssue.set(std::nullopt);
    m_preferences.setValue(keys::resumeCaptureSetup, false);
}

QCoro::Task<Outcome> AppStore::captureMoment(QString title, QString next, CaptureKind kind)
{
    return carryOut(captureForm(std::move(title), std::move(next), kind));
}

QCoro::Task<Outcome> AppStore::captureForm(QString title, QString next, CaptureKind kind)
{
    Outcome outcome{.subject = subjects::capture};
    if (busy())
        co_return outcome;
    draftTitle.set(title.trimmed());
    draftNext.set(next.trimmed());
    m_preferences.setValue(keys::captureDraftRecording, kind == CaptureKind::Session);
    refreshScreenAccess();
    if (!screenAccessGranted()) {
        outcome.captureIssue = screenAccessReason().value_or(
            tr("Screen access needs to be set up before saving. Use Allow screen access once, then finish in System "
               "Settings. Your draft is saved."));
        co_return outcome;
    }
    outcome.captureIssue = exclusionsObstacle();
    if (kind == CaptureKind::Session && !outcome.captureIssue)
        outcome.captureIssue = sessionObstacle();
    const std::optional<QUuid> projectID = outcome.captureIssue ? std::nullopt : draftProject(&outcome);
    if (!projectID)
        co_return outcome;
    const CaptureRequest request{*projectID, draftTitle(), draftNext(), includeBrowser()};
    savingForm.set(true);
    const auto over = qScopeGuard([this] { savingForm.set(false); });
    const FormInUse form{request.title, request.next, showCapture(), showQuickCapture()};
    Outcome captured = co_await capture(request, kind, Audience::Window);
    captured.remarks = outcome.remarks + captured.remarks;
    if (!captured)
        co_return captured;
    finishForm(form);
    if (kind == CaptureKind::Checkpoint)
        considerNewsletter();
    co_return captured;
}

std::optional<QUuid> AppStore::draftProject(Outcome *outcome)
{
    const QList<Project> available = availableProjects();
    const auto isDraft = [this](const Project &project) { return project.id == draftProjectID(); };
    if (std::any_of(available.begin(), available.end(), isDraft))
        return draftProjectID();
    if (draftProjectName().trimmed().isEmpty()) {
        outcome->fail(tr("Choose a project or enter a new project name before saving."));
        return std::nullopt;
    }
    const Outcome created = makeProject(draftProjectName());
    outcome->remarks += created.remarks;
    if (created) {
        beginWith(*created);
        draftProjectName.set({}); // The next new project has another name.
    } else if (created.error) {
        outcome->fail(*created.error);
    }
    return created.id;
}

// What has been typed or opened meanwhile is for the next one.
void AppStore::finishForm(const FormInUse &saved)
{
    const PublishTogether group;
    m_preferences.setValue(keys::captureDraftRecording, false);
    m_preferences.setValue(keys::resumeCaptureSetup, false);
    if (draftTitle() == saved.title)
        draftTitle.set({});
    if (draftNext() == saved.next)
        draftNext.set({});
    if (saved.hasSheet)
        showCapture.set(false);
    if (saved.hasPanel)
        showQuickCapture.set(false);
}

void AppStore::considerNewsletter()
{
    if (!m_preferences.value(keys::newsletterPromptDismissed).value_or(false))
        showNewsletterPrompt.set(true);
}

} // namespace ardeno
