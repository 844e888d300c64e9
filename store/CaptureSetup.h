// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/CaptureRequest.h"
#include "store/Navigation.h"
#include "store/ScreenAccessFlow.h"

namespace ardeno {

// Opens the capture form, and closes it without saving.
class CaptureSetup final {
public:
    CaptureSetup(const Library &library, const Navigation &navigation, Messages &messages, CaptureDrafts &drafts,
                 OpenSheets &sheets, ScreenAccessFlow &screenAccess);

    void requestCapture(CaptureKind kind, CaptureForm form);
    // The drafts stay.
    void cancelCapture();

private:
    const Library &m_library;
    const Navigation &m_navigation;
    Messages &m_messages;
    CaptureDrafts &m_drafts;
    OpenSheets &m_sheets;
    ScreenAccessFlow &m_screenAccess;
};

} // namespace ardeno
