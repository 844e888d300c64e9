// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <functional>

class QWidget;

namespace ardeno {

class Sheet;
class SheetHost;

// The screens that the main window opens and does not build itself. One that is absent has no button anywhere.
struct Screens {
    using MakeSheet = std::function<Sheet *()>;

    MakeSheet capture = {};     // For showCapture.
    MakeSheet restore = {};     // For showRestore, with the selected checkpoint.
    MakeSheet preferences = {}; // For showSettings.
    MakeSheet exclusions = {};  // For showExclusions, over the others.
    std::function<Sheet *(const Checkpoint &)> edit = {};
    // Shows again the forms that were open when the program was ended.
    std::function<void(SheetHost &)> reopenKept = {};
    // What a checkpoint holds of the workspace, at the end of its detail.
    std::function<QWidget *(const QUuid &)> workspaceItems = {};
    // The viewer goes with the picture.
    std::function<void(const QString &file)> viewScreenshot = {};
    // Ends a recorded session and saves its checkpoint; absent: the store does so at once.
    std::function<void()> stopRecording = {};
    // Where an offered version and the newsletter are; absent: nothing to open.
    std::function<void()> openUpdate = {};
    std::function<void()> openNewsletter = {};
};

} // namespace ardeno
