// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QUuid>

#include <functional>
#include <optional>

namespace ardeno {

// The rule of a drag through the list of projects: the list moves along while the pointer travels, once for each row
// it enters; the drop itself changes nothing more.
class SidebarProjectDrop final {
public:
    using Reorder = std::function<void(const QUuid &dragged, const QUuid &target, const QList<QUuid> &visibleIDs)>;

    explicit SidebarProjectDrop(Reorder reorder) : m_reorder(std::move(reorder)) {}

    void begin(const QUuid &dragged);
    // The pointer is over this row, or between rows. Staying over one row is one entry.
    void moveOver(const std::optional<QUuid> &target, const QList<QUuid> &visibleIDs);
    void end();

    const std::optional<QUuid> &draggedID() const { return m_dragged; }

private:
    Reorder m_reorder;
    std::optional<QUuid> m_dragged;
    std::optional<QUuid> m_entered;
};

} // namespace ardeno
