// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/BrowserTabs.h"
#include "capture/CaptureService.h"
#include "desktop/Desktop.h"
#include "store/ExclusionRules.h"

namespace ardeno {

// Reads the workspace for checkpoints. What was collected under rules that have changed meanwhile is collected anew:
// the rules that are shown are those that hold.
class WorkspaceCollector final {
public:
    WorkspaceCollector(Desktop &desktop, CaptureService &capture, const ExclusionRules &rules, const Library &library);

    // The media go into that folder; the checkpoint names them where they will be. The limits are what the note says
    // beside how the capture went. Throws Failure without a picture.
    QCoro::Task<void> fill(Checkpoint *checkpoint, QString mediaFolder, bool withTabs, QString *limits = nullptr);
    // The open tabs that a capture keeps: without excluded browsers and websites.
    QCoro::Task<WorkspaceCapture::OpenTabs> capturedTabs();
    // The windows of these applications.
    QCoro::Task<QList<SavedWindow>> capturedWindows(QList<SavedApp> apps);
    // Whether windows can be seen.
    Capability windowAccess() const;

private:
    QCoro::Task<void> collect(Checkpoint *checkpoint, QString mediaFolder, bool withTabs, QString *limits);
    QCoro::Task<void> takePicture(Checkpoint *checkpoint, QString mediaFolder);

    Desktop &m_desktop;
    CaptureService &m_capture;
    const ExclusionRules &m_rules;
    const Library &m_library;
};

} // namespace ardeno
