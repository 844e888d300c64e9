// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Applications.h"
#include "store/CaptureDrafts.h"
#include "store/KeptForms.h"
#include "store/Library.h"
#include "store/Navigation.h"
#include "store/OpenSheets.h"
#include "store/QuickSaveShortcut.h"
#include "store/Updates.h"

namespace ardeno {

// What the settings show and call.
struct PreferenceParts {
    const Library &library;
    Navigation &navigation;
    CaptureDrafts &drafts;
    OpenSheets &sheets;
    QuickSaveShortcut &shortcut;
    Updates &updates;
    Applications &applications;
    KeptForms &keptForms;
};

} // namespace ardeno
