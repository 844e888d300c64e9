// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/CheckpointListModel.h"

#include "ui/projects/ProjectText.h"

#include <QCoreApplication>

namespace ardeno {

namespace {

bool looksAlike(const Checkpoint &a, const Checkpoint &b)
{
    return a.createdAt == b.createdAt && a.title == b.title && a.nextStep == b.nextStep && a.screenshot == b.screenshot;
}

} // namespace

CheckpointListModel::CheckpointListModel() : KeyedListModel(looksAlike) {}

QString CheckpointListModel::title(int row) const
{
    return ProjectText::timelineTitle(rows().at(row), m_projectName);
}

QString CheckpointListModel::heading(int row) const
{
    return ProjectText::title(rows().at(row), m_projectName);
}

QVariant CheckpointListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return title(index.row());
    if (role != Qt::AccessibleTextRole)
        return {};
    QStringList parts{title(index.row()), heading(index.row()), ProjectText::moment(rows().at(index.row()).createdAt)};
    parts.removeDuplicates();
    if (isLatest(index))
        parts << QCoreApplication::translate("ardeno::CheckpointListModel", "Latest");
    return parts.join(", ");
}

} // namespace ardeno
