// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"
#include "ui/controls/PlainList.h"
#include "ui/main/SidebarProjectDrop.h"
#include "ui/projects/ProjectListModel.h"

namespace ardeno {

// The projects of the sidebar, in the user's order, which dragging a row changes, or Alt with the arrow keys.
class ProjectListView final : public PlainList {
public:
    explicit ProjectListView(AppStore &store, QWidget *parent = nullptr);

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

    AppStore &m_store;
    ProjectListModel m_model;
    ProjectListModel::Counts m_counts;
    SidebarProjectDrop m_drop;
    Observations m_observations;
};

} // namespace ardeno
