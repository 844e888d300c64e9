// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <QHash>

namespace ardeno {

// The checkpoints of each project, newest first, kept from one question to the next while the list is the same.
class ProjectHistories final {
public:
    QList<Checkpoint> of(const QUuid &projectID, const QList<Checkpoint> &checkpoints);

private:
    QList<Checkpoint> m_ordered; // The list itself tells whether it is still the same one.
    QHash<QUuid, QList<Checkpoint>> m_histories;
};

} // namespace ardeno
