// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"

class QMenu;
class QWidget;

// What the timeline and the manager do with a checkpoint.
namespace ardeno::CheckpointActions {

// "Open checkpoint" and "Delete checkpoint…"; the owner's window shows the question.
void fill(QMenu *menu, AppStore &store, const Checkpoint &checkpoint, QWidget *owner, std::function<void()> opened);

// Asks before it deletes.
void confirmDelete(QWidget *owner, AppStore &store, const Checkpoint &checkpoint);

// Which one it is, in a sentence: title, moment and project.
QString describe(const AppStore &store, const Checkpoint &checkpoint);

// Saves a checkpoint into the selected project: through the form where there is one, else with its drafts at once.
// Where no project can take it, one is made first.
void requestSave(AppStore &store, bool hasForm);

} // namespace ardeno::CheckpointActions
