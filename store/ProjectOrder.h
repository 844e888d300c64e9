// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <vector>

// The rules of the project and checkpoint lists.
namespace ardeno::ProjectOrder {

// The project of this name, as people compare names.
std::optional<QUuid> named(const QList<Project> &projects, const QString &name);

// The identifier that this project has among these: the same record, or the one of its name; appended when there is
// neither.
QUuid adopt(QList<Project> *projects, const Project &project);

// The list with the dragged project in front of the target, without one behind the last; visibleIDs are the rows the
// user sees, in their order. Projects that are not visible keep their places. Absent when the move is not allowed or
// changes nothing.
std::optional<QList<Project>> moved(const QList<Project> &projects, const QUuid &dragged,
                                    const std::optional<QUuid> &target, const QList<QUuid> &visibleIDs);

// The project's checkpoints, newest first.
QList<Checkpoint> newestFirst(const QList<Checkpoint> &checkpoints, const QUuid &projectID);

// The same order for checkpoints that stay where they are, as records are large.
void sortNewestFirst(std::vector<const Checkpoint *> *checkpoints);

// The first of newestFirst; absent when the project has none.
std::optional<QUuid> newest(const QList<Checkpoint> &checkpoints, const QUuid &projectID);

// The checkpoint to show when this one goes: the next newer of its project, else the next older.
std::optional<QUuid> neighbour(const QList<Checkpoint> &newestFirst, const QUuid &id);

} // namespace ardeno::ProjectOrder
