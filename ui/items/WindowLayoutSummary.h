// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/RemovalUndo.h"
#include "store/WorkspaceEditing.h"
#include "ui/items/ApplicationIcons.h"
#include "ui/items/ItemModel.h"

#include <QWidget>

class QLabel;

namespace ardeno {

class Button;
class ItemList;
class UndoBanner;

// Where the windows of a checkpoint stood.
class WindowLayoutSummary final : public QWidget {
public:
    WindowLayoutSummary(WorkspaceEditing &workspace, RemovalUndo &removals, ApplicationIcons &icons,
                        const Checkpoint &checkpoint);

    void show(const Checkpoint &checkpoint);

private:
    QWidget *makeHead(const Checkpoint &checkpoint);
    void showUndo(const QUuid &checkpointID);

    WorkspaceEditing &m_workspace;
    RemovalUndo &m_removals;
    ItemModel m_model;
    QLabel *m_none;
    Button *m_disclosure;
    Button *m_update = nullptr; // A sample has none.
    ItemList *m_list;
    UndoBanner *m_undo = nullptr;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
