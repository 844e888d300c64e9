// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/ProjectsOverview.h"

#include "ui/controls/Button.h"
#include "ui/controls/EmptyState.h"
#include "ui/controls/Fields.h"
#include "ui/controls/Label.h"
#include "ui/controls/Surfaces.h"
#include "ui/projects/CardGrid.h"
#include "ui/projects/ProjectCard.h"
#include "ui/projects/ProjectText.h"

#include <utility>

namespace ardeno {

namespace {

QHash<QUuid, Checkpoint> latestByProject(const QList<Checkpoint> &checkpoints)
{
    QHash<QUuid, const Checkpoint *> newest;
    for (const Checkpoint &checkpoint : checkpoints) {
        const Checkpoint *&best = newest[checkpoint.projectID.value_or(QUuid())];
        if (!best || checkpoint.createdAt > best->createdAt)
            best = &checkpoint;
    }
    QHash<QUuid, Checkpoint> latest;
    for (auto entry = newest.begin(); entry != newest.end(); ++entry)
        latest.insert(entry.key(), *entry.value());
    return latest;
}

} // namespace

ProjectsOverview::ProjectsOverview(const ProjectParts &parts, CheckpointMedia &media, QWidget *parent)
    : QWidget(parent),
      m_parts(parts),
      m_pictures(
          media, [this] { m_grid->viewport()->update(); }, ProjectCard::pictureSize),
      m_title(new LineLabel({}, TextStyle::Title)),
      m_subtitle(makeLabel({}, TextStyle::Body, Role::Dim)),
      m_archived(new Switch(tr("Show archived"))),
      m_empty(new EmptyState("folder", {}, 64))
{
    m_grid = new CardGrid(tr("Projects"),
                          {.make = [this] { return new ProjectCard(m_parts, m_pictures); },
                           .show =
                               [this](QWidget *card, int index) {
                                   const Project &project = m_projects.at(index);
                                   const auto latest = m_latest.constFind(project.id);
                                   static_cast<ProjectCard *>(card)->show(
                                       project, latest == m_latest.cend() ? nullptr : &*latest);
                               },
                           .controls = [](QWidget *card) { return static_cast<ProjectCard *>(card)->controls(); },
                           .height = &ProjectCard::cardHeight});
    m_grid->setHeader(makeHeader());
    makeColumn(0, this)->addWidget(m_grid);
    m_subscriptions.watch(
        [this] {
            m_latest = latestByProject(m_parts.library.projects().isEmpty() ? m_parts.library.sampleHistory()
                                                                            : m_parts.library.checkpoints());
            showProjects(true);
        },
        parts.library.projects, parts.library.checkpoints, parts.library.sampleHistory);
    m_subscriptions.watch([this] { showProjects(false); }, parts.navigation.search,
                          parts.navigation.showArchivedProjects);
}

QWidget *ProjectsOverview::makeHeader()
{
    auto *titles = makeColumn(2);
    titles->addWidget(m_title);
    titles->addWidget(m_subtitle);
    auto *create = new Button(tr("New project"), Button::Kind::Prominent, "plus");
    create->setHint(tr("New project"), "Ctrl+N");
    connect(create, &QAbstractButton::clicked, this, [this] { m_parts.sheets.open(&OpenSheets::showNewProject); });
    connect(m_archived, &QAbstractButton::toggled, this,
            [this](bool isOn) { m_parts.navigation.setShowArchivedProjects(isOn); });

    auto *header = new QWidget;
    auto *column = makeColumn(24, header);
    auto *row = makeRow(18);
    row->addLayout(titles, 1);
    row->addWidget(m_archived, 0, Qt::AlignBottom);
    row->addWidget(create, 0, Qt::AlignBottom);
    column->addLayout(row);
    column->addWidget(m_empty);
    return header;
}

void ProjectsOverview::showEmpty()
{
    if (!m_parts.navigation.search().isEmpty())
        m_empty->show("magnifyingglass", tr("No projects match your search."));
    else if (m_parts.navigation.showArchivedProjects())
        m_empty->show("archivebox", tr("No archived projects."));
    else
        m_empty->show("folder.badge.plus", tr("Create a project to save your first checkpoint."));
    m_empty->setVisible(m_projects.isEmpty());
}

void ProjectsOverview::showProjects(bool isStale)
{
    m_title->setText(m_parts.navigation.showArchivedProjects() ? tr("Archived projects") : tr("Projects"));
    m_subtitle->setText(ProjectText::overview(m_parts.library.availableProjects()));
    m_archived->setChecked(m_parts.navigation.showArchivedProjects());
    const QList<Project> before = std::exchange(m_projects, m_parts.navigation.filteredProjects());
    showEmpty();
    if (isStale || m_projects != before)
        m_grid->setCount(static_cast<int>(m_projects.size()));
}

} // namespace ardeno
