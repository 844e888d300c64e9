// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Applications.h"
#include "store/CheckpointEditing.h"
#include "store/CheckpointMedia.h"
#include "store/Library.h"
#include "store/Messages.h"
#include "store/Navigation.h"
#include "store/OpenSheets.h"
#include "store/RemovalUndo.h"
#include "store/ResumeFlow.h"
#include "store/ScreenshotEditing.h"

namespace ardeno {

// What the picture of a checkpoint shows and calls.
struct ScreenshotParts {
    const Library &library;
    const Applications &applications;
    Messages &messages;
    CheckpointMedia &media;
    ScreenshotEditing &screenshots;
    RemovalUndo &removals;
};

// What its page does.
struct CheckpointParts {
    const Library &library;
    const Navigation &navigation;
    const Applications &applications;
    Messages &messages;
    OpenSheets &sheets;
    CheckpointEditing &editing;
    ResumeFlow &resumes;
    ScreenshotParts picture;
};

} // namespace ardeno
