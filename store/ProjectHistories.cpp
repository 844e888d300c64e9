// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/ProjectHistories.h"

#include "store/ProjectOrder.h"

namespace ardeno {

QList<Checkpoint> ProjectHistories::of(const QUuid &projectID, const QList<Checkpoint> &checkpoints)
{
    if (!m_ordered.isSharedWith(checkpoints)) {
        m_ordered = checkpoints;
        m_histories.clear();
    }
    const auto known = m_histories.constFind(projectID);
    if (known != m_histories.cend())
        return *known;
    return *m_histories.insert(projectID, ProjectOrder::newestFirst(checkpoints, projectID));
}

} // namespace ardeno
