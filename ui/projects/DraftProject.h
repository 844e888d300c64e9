// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/CaptureDrafts.h"
#include "store/Library.h"

namespace ardeno {

class DropDown;

// The project that the next checkpoint goes into.
namespace DraftProject {

// Whether it will be made first; its name is in another draft.
bool isNew(const Library &library, const CaptureDrafts &drafts);

// Lets it be chosen among those there are and, below a line, a new one.
void offer(DropDown *choice, const QString &newProject, const Library &library, CaptureDrafts &drafts,
           Subscriptions &subscriptions);

} // namespace DraftProject

} // namespace ardeno
