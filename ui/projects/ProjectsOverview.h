// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/projects/ProjectParts.h"
#include "ui/projects/ThumbnailShelf.h"

#include <QHash>
#include <QWidget>

class QLabel;

namespace ardeno {

class Button;
class CardGrid;
class EmptyState;
class LineLabel;
class Switch;

// All projects, one card each.
class ProjectsOverview final : public QWidget {
public:
    ProjectsOverview(const ProjectParts &parts, CheckpointMedia &media, QWidget *parent = nullptr);

private:
    QWidget *makeHeader();
    // Stale: the cards show what has changed since, even if the projects are the same.
    void showProjects(bool isStale);
    void showEmpty();

    ProjectParts m_parts;
    ThumbnailShelf m_pictures;
    LineLabel *m_title;
    QLabel *m_subtitle;
    Switch *m_archived;
    CardGrid *m_grid;
    EmptyState *m_empty;
    QList<Project> m_projects;
    QHash<QUuid, Checkpoint> m_latest; // Of each project.
    Subscriptions m_subscriptions;
};

} // namespace ardeno
