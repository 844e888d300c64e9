// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/Sheet.h"
#include "ui/projects/CheckpointListModel.h"
#include "ui/projects/CheckpointListParts.h"
#include "ui/projects/ThumbnailShelf.h"

#include <QPersistentModelIndex>

class QLabel;

namespace ardeno {

class LineLabel;
class PlainList;

// All checkpoints of a project, to open and to delete.
class CheckpointManagerSheet final : public Sheet {
public:
    CheckpointManagerSheet(const CheckpointListParts &parts, const Project &project);

private:
    PlainList *makeList();
    QWidget *makeEmpty();
    QWidget *makeFooter();
    void showCheckpoints();
    void showChosen();
    // Stays until the next one is placed, or until neither the pointer nor the keyboard is at its row.
    void placeRowMenu(const QModelIndex &index);
    void pointTo(const QModelIndex &index);
    std::optional<Checkpoint> chosen() const;

    CheckpointListParts m_parts;
    QUuid m_projectID;
    CheckpointListModel m_model;
    QLabel *m_count;
    ThumbnailShelf m_pictures;
    PlainList *m_list;
    QPersistentModelIndex m_pointed; // The row below the pointer.
    QWidget *m_empty;
    LineLabel *m_chosen;
    Button *m_delete;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
