// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"

namespace ardeno {

class Choice;

// The project that the next checkpoint goes into.
namespace DraftProject {

// Whether it will be made first; its name is in another draft.
bool isNew(const AppStore &store);

// Lets it be chosen among those there are and, below a line, a new one.
void offer(Choice *choice, const QString &newProject, AppStore &store, Observations &observations);

} // namespace DraftProject

} // namespace ardeno
