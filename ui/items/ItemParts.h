// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Applications.h"
#include "store/ExclusionRules.h"
#include "store/Library.h"
#include "store/Messages.h"
#include "store/Operations.h"
#include "store/RemovalUndo.h"
#include "store/WorkspaceEditing.h"

namespace ardeno {

// What the items of a checkpoint show and call.
struct ItemParts {
    const Library &library;
    const Operations &operations;
    Messages &messages;
    ExclusionRules &rules;
    Applications &applications;
    WorkspaceEditing &workspace;
    RemovalUndo &removals;
};

} // namespace ardeno
