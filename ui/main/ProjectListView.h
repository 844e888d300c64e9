// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/FollowingList.h"
#include "ui/main/SidebarProjectDrop.h"
#include "ui/projects/ProjectListModel.h"
#include "ui/projects/ProjectParts.h"

#include <QTimer>

#include <optional>
#include <utility>

namespace ardeno {

// The projects of the sidebar, in the user's order, which dragging a row changes, or Alt with the arrow keys.
class ProjectListView final : public FollowingList {
public:
    explicit ProjectListView(const ProjectParts &parts, QWidget *parent = nullptr);

protected:
    void startDrag(Qt::DropActions supported) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showProjects();
    void showSelection();
    void moveCurrent(int step);
    // A drag has entered a row. Where the library takes long to write, the list alone moves until the pointer rests.
    void enter(const QUuid &dragged, const QUuid &target);
    void writeOrder();

    ProjectParts m_parts;
    ProjectListModel m_model;
    ProjectListModel::Counts m_counts;
    SidebarProjectDrop m_drop;
    // The dragged project and the one that it stands before; absent: behind the last.
    std::optional<std::pair<QUuid, std::optional<QUuid>>> m_unwritten;
    QTimer m_rest;
    qint64 m_writeMilliseconds = 0; // What the last change of the order took.
    Subscriptions m_subscriptions;
};

} // namespace ardeno
