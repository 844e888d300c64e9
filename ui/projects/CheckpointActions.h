// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/projects/CaptureParts.h"
#include "ui/projects/CheckpointListParts.h"

class QMenu;
class QWidget;

// What the timeline and the manager do with a checkpoint.
namespace ardeno::CheckpointActions {

// "Open checkpoint" and "Delete checkpoint…"; the owner's window shows the question.
void fill(QMenu *menu, const CheckpointListParts &parts, const Checkpoint &checkpoint, QWidget *owner,
          std::function<void()> opened);

// Asks before it deletes.
void confirmDelete(QWidget *owner, const CheckpointListParts &parts, const Checkpoint &checkpoint);

// Which one it is, in a sentence: title, moment and project.
QString describe(const Library &library, const Checkpoint &checkpoint);

// Saves a checkpoint into the selected project: through the form where there is one, else with its drafts at once.
// Where no project can take it, one is made first.
void requestSave(const CaptureParts &parts, const Navigation &navigation, bool hasForm);

} // namespace ardeno::CheckpointActions
