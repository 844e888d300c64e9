// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/ProjectStatusView.h"

#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/controls/Surfaces.h"

namespace ardeno {

ProjectStatusView::ProjectStatusView(const ProjectParts &parts, QWidget *parent)
    : QWidget(parent),
      m_parts(parts),
      m_state(new Chip),
      m_waitingFor(makeLabel(tr("Waiting for"), TextStyle::Small, Role::Dim)),
      m_reason(new LineLabel),
      m_block(new Button(tr("Mark blocked…"))),
      m_editReason(new Button(tr("Edit reason"), Button::Kind::Plain)),
      m_activate(new Button(tr("Mark active"))),
      m_unarchive(new Button(tr("Unarchive project")))
{
    auto *row = makeRow(10, this);
    row->setContentsMargins(28, 12, 28, 12);
    row->addWidget(m_state);
    row->addWidget(m_waitingFor);
    row->addWidget(m_reason, 1);
    for (Button *const button : {m_block, m_editReason, m_activate, m_unarchive})
        row->addWidget(button);
    connect(m_block, &QAbstractButton::clicked, this, [this] { edit(); });
    connect(m_editReason, &QAbstractButton::clicked, this, [this] { edit(); });
    connect(m_activate, &QAbstractButton::clicked, this, [this] {
        if (const Project *const project = m_parts.navigation.selectedProject())
            m_parts.projects.setProjectBlocker(project->id, std::nullopt);
    });
    connect(m_unarchive, &QAbstractButton::clicked, this, [this] {
        if (const Project *const project = m_parts.navigation.selectedProject())
            m_parts.projects.setProjectArchived(project->id, false);
    });
    m_subscriptions.watch([this] { showProject(); }, parts.library.projects, parts.navigation.selectedProjectID);
}

void ProjectStatusView::edit()
{
    if (const Project *const project = m_parts.navigation.selectedProject())
        m_parts.sheets.editBlocker(*project);
}

void ProjectStatusView::showProject()
{
    const Project *const project = m_parts.navigation.selectedProject();
    if (!project)
        return;
    const bool isBlocked = project->blockedReason.has_value();
    const bool isArchived = project->archivedAt.has_value();
    if (isArchived)
        m_state->show(tr("Archived"), "archivebox", Role::Dim, Role::Card);
    else if (isBlocked)
        m_state->show(tr("Blocked"), "pause.circle.fill", Role::AmberText, Role::AmberSoft);
    else
        m_state->show(tr("Active"), "checkmark.circle", Role::SageText, Role::SageSoft);
    m_waitingFor->setVisible(isBlocked);
    m_reason->setText(isBlocked ? project->blockerDescription() : QString());
    m_block->setVisible(!isBlocked && !project->isSample);
    m_editReason->setVisible(isBlocked);
    m_activate->setVisible(isBlocked);
    m_unarchive->setVisible(isArchived);
}

} // namespace ardeno
