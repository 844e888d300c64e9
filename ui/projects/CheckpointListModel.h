// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"
#include "ui/controls/KeyedListModel.h"

namespace ardeno {

// The checkpoints of one project, newest first. Their texts are made when they are drawn.
class CheckpointListModel final : public KeyedListModel<Checkpoint> {
public:
    CheckpointListModel();

    void setProjectName(const QString &name) { m_projectName = name; }

    QVariant data(const QModelIndex &index, int role) const override;

    // The label in lists, and what stands over the checkpoint when it is shown.
    QString title(int row) const;
    QString heading(int row) const;

    static bool isLatest(const QModelIndex &index) { return index.row() == 0; }

private:
    QString m_projectName;
};

} // namespace ardeno
