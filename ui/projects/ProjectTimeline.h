// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/projects/CheckpointListModel.h"
#include "ui/projects/CheckpointListParts.h"
#include "ui/projects/ThumbnailShelf.h"

#include <QWidget>

class QLabel;

namespace ardeno {

class Button;
class FollowingList;

// The selected project's checkpoints as a strip, newest first.
class ProjectTimeline final : public QWidget {
public:
    ProjectTimeline(const CheckpointListParts &parts, const Operations &operations, const SessionRecorder &recorder,
                    std::function<void()> save, QWidget *parent = nullptr);

    // To the right in the strip is older.
    void selectNeighbour(int step);

private:
    QWidget *makeHeader();
    FollowingList *makeBanner();
    void showCheckpoints();
    void showSelection();
    void showBusy();
    void manage();

    CheckpointListParts m_parts;
    const Operations &m_operations;
    const SessionRecorder &m_recorder;
    CheckpointListModel m_model;
    ThumbnailShelf m_pictures;
    std::optional<QUuid> m_shownProject;
    QLabel *m_count;
    Button *m_manage;
    Button *m_latest;
    Button *m_save;
    FollowingList *m_strip;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
