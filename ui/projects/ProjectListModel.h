// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"
#include "ui/controls/KeyedListModel.h"

#include <QHash>

namespace ardeno {

// One project as lists show it.
struct ProjectRow {
    QUuid id = {};
    QString name = {};
    bool isSample = false;
    std::optional<QString> blocker = {}; // What to show of the reason; absent: not blocked.
    qsizetype checkpoints = 0;

    bool operator==(const ProjectRow &) const = default;
};

class ProjectListModel final : public KeyedListModel<ProjectRow> {
public:
    ProjectListModel();

    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    // How many checkpoints each project has.
    using Counts = QHash<QUuid, qsizetype>;
    static Counts count(const QList<Checkpoint> &checkpoints);

    static QList<ProjectRow> makeRows(const QList<Project> &projects, const Counts &counts);
};

} // namespace ardeno
