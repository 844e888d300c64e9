// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/items/ApplicationIcons.h"
#include "ui/items/ItemModel.h"
#include "ui/items/ItemParts.h"

#include <QWidget>

#include <functional>

class QMenu;

namespace ardeno {

class Button;
class ItemList;
class UndoBanner;
class WindowLayoutSummary;

// What a checkpoint saved of the workspace, to be pruned, added to, and turned into rules for later captures.
class WorkspaceItemsView final : public QWidget {
public:
    WorkspaceItemsView(const ItemParts &parts, const QUuid &checkpointID);

private:
    QWidget *makeHead();
    QWidget *makeLists();
    QWidget *makeApps();
    QWidget *makeTabs();
    QWidget *makeTabsHead();
    QWidget *makeNoTabs();
    const Checkpoint *current() const;
    const SavedApp *appAt(const QModelIndex &index) const;
    const SavedTab *tabAt(const QModelIndex &index) const;
    void fillAppMenu(QMenu *menu, const SavedApp &app);
    void fillTabMenu(QMenu *menu, const SavedTab &tab);
    void showCheckpoint();
    void showUndo();

    ItemParts m_parts;
    QUuid m_id;
    bool m_isSample;
    ApplicationIcons m_icons;
    ItemModel m_appModel;
    ItemModel m_tabModel;
    UndoBanner *m_undo = nullptr;
    ItemList *m_apps = nullptr;
    QWidget *m_appCard = nullptr;
    QWidget *m_noApps = nullptr;
    ItemList *m_tabs = nullptr;
    QWidget *m_tabCard = nullptr;
    QWidget *m_noTabs = nullptr;
    Button *m_addTabs = nullptr;
    WindowLayoutSummary *m_windows = nullptr;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
