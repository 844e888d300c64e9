// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Library.h"
#include "store/Navigation.h"
#include "store/OpenSheets.h"
#include "store/ProjectOperations.h"

namespace ardeno {

// What the views of projects show and call.
struct ProjectParts {
    const Library &library;
    Navigation &navigation;
    ProjectOperations &projects;
    OpenSheets &sheets;
};

} // namespace ardeno
