// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/CaptureDrafts.h"
#include "store/CaptureSetup.h"
#include "store/FormCapture.h"
#include "store/Library.h"
#include "store/Messages.h"
#include "store/OpenSheets.h"
#include "store/Operations.h"
#include "store/ScreenAccessFlow.h"
#include "store/SessionRecorder.h"

namespace ardeno {

// What the capture form shows and calls, in its sheet and in the quick panel.
struct CaptureParts {
    const Library &library;
    const Operations &operations;
    Messages &messages;
    CaptureDrafts &drafts;
    OpenSheets &sheets;
    CaptureSetup &setup;
    FormCapture &form;
    ScreenAccessFlow &screenAccess;
    const SessionRecorder &recorder;
};

} // namespace ardeno
