// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/CaptureSetup.h"

namespace ardeno {

CaptureSetup::CaptureSetup(const Library &library, const Navigation &navigation, Messages &messages,
                           CaptureDrafts &drafts, OpenSheets &sheets, ScreenAccessFlow &screenAccess)
    : m_library(library),
      m_navigation(navigation),
      m_messages(messages),
      m_drafts(drafts),
      m_sheets(sheets),
      m_screenAccess(screenAccess)
{
}

void CaptureSetup::requestCapture(CaptureKind kind, CaptureForm form)
{
    const auto isAvailable = [this](const std::optional<QUuid> &id) {
        const Project *const found = id ? m_library.project(*id) : nullptr;
        return found && !found->archivedAt;
    };
    if (form == CaptureForm::Sheet && isAvailable(m_navigation.selectedProjectID())) {
        m_drafts.setDraftProjectID(m_navigation.selectedProjectID()); // It is opened on the page of that project.
    } else if (!isAvailable(m_drafts.draftProjectID())) {
        const QUuid last = m_navigation.lastOpenedProject();
        m_drafts.setDraftProjectID(isAvailable(last) ? std::optional(last) : std::nullopt);
    }
    m_drafts.setPendingRecording(kind == CaptureKind::Session);
    m_drafts.keepRecording(m_drafts.pendingRecording());
    m_messages.setCaptureIssue(std::nullopt); // What was said elsewhere, as of a session, is not about this form.
    m_screenAccess.refreshScreenAccess();
    m_sheets.open(form == CaptureForm::QuickPanel ? &OpenSheets::showQuickCapture : &OpenSheets::showCapture);
}

void CaptureSetup::cancelCapture()
{
    const PublishTogether group;
    m_sheets.close(&OpenSheets::showCapture);
    m_sheets.close(&OpenSheets::showQuickCapture);
    m_messages.setCaptureIssue(std::nullopt);
    m_drafts.setResumesSetup(false);
}

} // namespace ardeno
