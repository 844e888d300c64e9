// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

// What the views of projects and checkpoints say; pure.
namespace ardeno::ProjectText {

// "1 checkpoint", "0 checkpoints".
QString checkpointCount(qsizetype count);

// "3 active · 1 blocked", counted over projects that are not archived.
QString overview(const QList<Project> &available);

// The first line of a next step without its list marker; empty when there is none.
QString firstStep(const Checkpoint &checkpoint);

// "First checkpoint" for one that is titled exactly like its project, else the title as it is stored, and the moment
// for a blank one.
QString title(const Checkpoint &checkpoint, const QString &projectName);

// The same for a cell of the timeline, which shows the next step of a checkpoint where it has one.
QString timelineTitle(const Checkpoint &checkpoint, const QString &projectName);

// "6 apps · 1 page · Choose what to reopen"
QString resumeCaption(const Checkpoint &checkpoint);

// "Today, 9:41 AM", "Yesterday, 5:20 PM", else the date and the time.
QString moment(Date date, Date now = Date::now());
// The same in the middle of a sentence.
QString momentInSentence(Date date, Date now = Date::now());

} // namespace ardeno::ProjectText
