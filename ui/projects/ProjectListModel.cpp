// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/ProjectListModel.h"

#include "ui/projects/ProjectText.h"

#include <QCoreApplication>

namespace ardeno {

ProjectListModel::ProjectListModel() : KeyedListModel([](const ProjectRow &a, const ProjectRow &b) { return a == b; })
{
}

QVariant ProjectListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const ProjectRow &row = rows().at(index.row());
    if (role == Qt::DisplayRole)
        return row.name;
    if (role != Qt::AccessibleTextRole)
        return {};
    QStringList parts{row.name};
    if (row.blocker)
        parts << QCoreApplication::translate("ardeno::ProjectListModel", "Blocked") << *row.blocker;
    parts << ProjectText::checkpointCount(row.checkpoints);
    return parts.join(", ");
}

Qt::ItemFlags ProjectListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    const Qt::ItemFlags flags = QAbstractListModel::flags(index) | Qt::ItemIsDropEnabled;
    return rows().at(index.row()).isSample ? flags : flags | Qt::ItemIsDragEnabled;
}

ProjectListModel::Counts ProjectListModel::count(const QList<Checkpoint> &checkpoints)
{
    Counts counts;
    for (const Checkpoint &checkpoint : checkpoints)
        ++counts[checkpoint.projectID.value_or(QUuid())];
    return counts;
}

QList<ProjectRow> ProjectListModel::makeRows(const QList<Project> &projects, const Counts &counts)
{
    QList<ProjectRow> rows;
    rows.reserve(projects.size());
    for (const Project &project : projects) {
        const bool isBlocked = project.blockedReason.has_value();
        rows.append({project.id, project.name, project.isSample,
                     isBlocked ? std::optional(project.blockerDescription()) : std::nullopt, counts.value(project.id)});
    }
    return rows;
}

} // namespace ardeno
