// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/ProjectCard.h"

#include "ui/controls/Label.h"
#include "ui/controls/Menu.h"
#include "ui/projects/ProjectActions.h"
#include "ui/projects/ProjectText.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

namespace ardeno {

ProjectCard::ProjectCard(AppStore &store)
    : m_store(store),
      m_symbol(new SymbolView("folder")),
      m_name(new LineLabel({}, TextStyle::BarTitle)),
      m_actions(Button::makeIcon("ellipsis.circle", tr("Actions"))),
      m_saved(new LineLabel({}, TextStyle::Small, Role::Dim)),
      m_noteLabel(makeLabel({}, TextStyle::Eyebrow)),
      m_note(new LineLabel),
      m_open(new Button(tr("Open project")))
{
    auto *column = makeColumn(0, this);
    column->setContentsMargins(19, 12, 12, 16);
    column->addWidget(makeHeader());
    column->addSpacing(6);
    column->addWidget(m_saved);
    column->addSpacing(9);
    column->addWidget(m_noteLabel);
    column->addSpacing(3);
    column->addWidget(m_note);
    column->addStretch();
    m_open->setSymbol("arrow.right", Button::SymbolSide::Trailing);
    connect(m_open, &QAbstractButton::clicked, this, [this] { m_store.selectProject(m_projectID); });
    column->addWidget(m_open, 0, Qt::AlignLeft);
    setMenu(m_actions, [this](QMenu *menu) { ProjectActions::fill(menu, m_store, m_projectID); });
}

QList<QWidget *> ProjectCard::controls() const
{
    return {m_actions, m_open};
}

QWidget *ProjectCard::makeHeader()
{
    auto *header = new QWidget;
    auto *row = makeRow(9, header);
    row->addWidget(m_symbol);
    row->addWidget(m_name, 1);
    row->addWidget(m_actions);
    return header;
}

void ProjectCard::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QPoint place = isByKey ? m_actions->mapToGlobal(m_actions->rect().bottomLeft()) : event->globalPos();
    showMenu(m_actions, place, [this](QMenu *menu) { ProjectActions::fill(menu, m_store, m_projectID); });
}

void ProjectCard::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F2)
        ProjectActions::rename(this, m_store, m_projectID);
    else
        Card::keyPressEvent(event);
}

void ProjectCard::show(const Project &project, const Checkpoint *latest)
{
    m_projectID = project.id;
    const bool isBlocked = project.blockedReason.has_value();
    m_symbol->setSymbol(isBlocked          ? "pause.circle.fill"
                        : project.isSample ? "sparkle"
                                           : "folder",
                        isBlocked ? Role::Amber : Role::AccentText);
    m_name->setText(project.name);
    m_actions->setVisible(!project.isSample); // Nothing changes the sample.
    m_actions->setHint(tr("Actions for %1").arg(project.name));
    m_saved->setText(latest ? tr("Saved %1").arg(ProjectText::momentInSentence(latest->createdAt))
                            : tr("No checkpoints yet"));
    const QString step = latest ? ProjectText::firstStep(*latest) : QString();
    m_noteLabel->setText(isBlocked ? tr("WAITING FOR") : tr("NEXT SMALL STEP"));
    m_noteLabel->setForegroundRole(AppTheme::paletteRole(isBlocked ? Role::AmberText : Role::Dim));
    m_note->setText(isBlocked ? project.blockerDescription() : step);
    m_noteLabel->setVisible(isBlocked || !step.isEmpty());
    m_note->setVisible(isBlocked || !step.isEmpty());
    m_open->setAccessibleName(tr("Open project %1").arg(project.name));
    setAccessibleName(project.name);
}

} // namespace ardeno
