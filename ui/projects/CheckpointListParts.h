// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/CheckpointMedia.h"
#include "store/Deletion.h"
#include "store/Library.h"
#include "store/Navigation.h"

namespace ardeno {

// What lists of checkpoints show and call.
struct CheckpointListParts {
    const Library &library;
    Navigation &navigation;
    Deletion &deletion;
    CheckpointMedia &media;
};

} // namespace ardeno
