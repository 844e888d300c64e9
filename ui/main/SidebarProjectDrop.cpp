// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/SidebarProjectDrop.h"

#include <utility>

namespace ardeno {

void SidebarProjectDrop::begin(const QUuid &dragged)
{
    m_dragged = dragged;
    m_entered.reset();
}

void SidebarProjectDrop::moveOver(const std::optional<QUuid> &target, const QList<QUuid> &visibleIDs)
{
    if (!m_dragged || std::exchange(m_entered, target) == target || !target || target == m_dragged)
        return;
    if (visibleIDs.contains(*m_dragged) && visibleIDs.contains(*target))
        m_reorder(*m_dragged, *target, visibleIDs);
}

void SidebarProjectDrop::end()
{
    m_dragged.reset();
    m_entered.reset();
}

} // namespace ardeno
