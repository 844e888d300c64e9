// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/RestorePlan.h"
#include "model/WorkspaceRecords.h"
#include "store/ResumeFlow.h"
#include "ui/theme/AppTheme.h"

#include <QAbstractListModel>
#include <QHash>

#include <functional>

namespace ardeno {

// How an item of a checkpoint stands to the workspace.
struct ItemStatus {
    QString text = {};
    QString symbol = {};
    Role role = Role::Dim;
    bool isChoice = false; // Whether it can be ticked.

    bool operator==(const ItemStatus &) const = default;
};

// A row of the restore sheet.
struct RestoreRow {
    enum class Kind { Header, App, Tab, Warning, Window };

    Kind kind = Kind::Header;
    QString title = {};
    QString detail = {};
    QString appID = {};
    QUuid tabID = {};
    ItemStatus status = {};
    bool isFirst = false; // Of its card.
    bool isLast = false;

    bool operator==(const RestoreRow &) const = default;
};

// What resuming a checkpoint would do, item by item, and what of it is chosen.
class RestoreListModel final : public QAbstractListModel {
public:
    explicit RestoreListModel(const Checkpoint &checkpoint);

    // The first plan chooses what is missing. Later ones choose nothing more, and drop what cannot be opened any more.
    void setPlan(const RestorePlan &plan);
    void setUnplaced(const QList<UnplacedWindow> &windows);

    const std::optional<RestorePlan> &plan() const { return m_plan; }

    const QSet<QString> &apps() const { return m_apps; }

    const QSet<QUuid> &tabs() const { return m_tabs; }

    qsizetype unplacedCount() const { return m_unplaced.size(); }

    qsizetype selectedCount() const { return m_apps.size() + m_tabs.size(); }

    const RestoreRow &row(const QModelIndex &index) const { return m_rows.at(index.row()); }

    const QList<RestoreRow> &rows() const { return m_rows; }

    bool isChosen(const RestoreRow &row) const;
    void toggle(const QModelIndex &index);

    void setOnChoose(std::function<void()> chosen) { m_chosen = std::move(chosen); }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    ItemStatus statusOf(const SavedApp &app) const;
    ItemStatus statusOf(const SavedTab &tab) const;
    void readPlan();
    void rebuild();
    void addApps(QList<RestoreRow> &rows) const;
    void addTabs(QList<RestoreRow> &rows) const;
    void addWindows(QList<RestoreRow> &rows) const;

    Checkpoint m_checkpoint;
    std::optional<RestorePlan> m_plan;
    QHash<QString, ItemStatus> m_appStatus;
    QHash<QUuid, ItemStatus> m_tabStatus;
    QList<UnplacedWindow> m_unplaced;
    QSet<QString> m_apps;
    QSet<QUuid> m_tabs;
    QList<RestoreRow> m_rows;
    std::function<void()> m_chosen;
};

} // namespace ardeno
