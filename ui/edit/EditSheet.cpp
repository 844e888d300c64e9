// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/edit/EditSheet.h"

#include "store/CheckpointEditing.h"
#include "store/Library.h"
#include "store/Messages.h"
#include "ui/controls/Choice.h"
#include "ui/controls/Fields.h"
#include "ui/controls/Ground.h"
#include "ui/controls/Label.h"
#include "ui/controls/ScrollColumn.h"
#include "ui/controls/TextArea.h"

namespace ardeno {

EditSheet::EditSheet(const Library &library, CheckpointEditing &editing, Messages &messages,
                     const Checkpoint &checkpoint)
    : Sheet(tr("Checkpoint details"), 560),
      m_library(library),
      m_editing(editing),
      m_messages(messages),
      m_id(checkpoint.id),
      m_project(makeProjects(checkpoint)),
      m_title(new TextField(tr("Checkpoint title"))),
      m_objective(new TextArea(tr("Where you left off"), 6)),
      m_nextStep(new TextArea(tr("Your next small step"), 4))
{
    auto *head = makeColumn(4);
    head->addWidget(makeLabel(tr("Checkpoint details"), TextStyle::SheetTitle));
    head->addWidget(makeParagraph(tr("Your notes are saved as written and shape the local return briefing."),
                                  TextStyle::Body, Role::Dim));
    column()->addLayout(head);
    auto *form = new ScrollColumn(14);
    form->column()->addLayout(makeLabelled(tr("Project"), m_project));
    form->column()->addLayout(makeLabelled(tr("Checkpoint title"), m_title));
    form->column()->addLayout(makeLabelled(tr("Where you left off"), m_objective));
    form->column()->addLayout(makeLabelled(tr("Your next small step"), m_nextStep));
    column()->addWidget(form, 1);
    m_title->setText(checkpoint.title);
    m_title->setModified(false);
    m_objective->setText(checkpoint.objective);
    m_nextStep->setText(checkpoint.nextStep);
    addButton(tr("Cancel"), Button::Kind::Bordered, [this] { close(); });
    addButton(tr("Save context"), Button::Kind::Prominent, [this] { save(); });
    setFirstFocus(m_title);
    setHoldsInput([this, project = m_project->current()] {
        return m_title->isModified() || m_objective->isModified() || m_nextStep->isModified() ||
               m_project->current() != project;
    });
}

Choice *EditSheet::makeProjects(const Checkpoint &checkpoint)
{
    auto *projects = new Choice(tr("Project"));
    QList<Choice::Option> options;
    for (const Project &project : m_library.projects())
        options.append({project.name, project.id});
    projects->setOptions(options);
    projects->setCurrent(checkpoint.projectID.value_or(QUuid()));
    return projects;
}

void EditSheet::save()
{
    const Checkpoint *const stored = m_library.checkpoint(m_id);
    if (!stored) { // What was typed stays, to be copied.
        m_messages.report(tr("This checkpoint is no longer in the library, so nothing could be saved."));
        return;
    }
    // On top of what is stored by now, as a picture may have been added meanwhile. What was not touched stays exactly
    // as it was, even where a field shows it a little differently.
    Checkpoint edited = *stored;
    if (const QVariant project = m_project->current(); project.isValid())
        edited.projectID = project.toUuid();
    if (m_title->isModified())
        edited.title = m_title->text();
    if (m_objective->isModified())
        edited.objective = m_objective->text();
    if (m_nextStep->isModified())
        edited.nextStep = m_nextStep->text();
    // What could not be saved stays in its fields.
    if (m_editing.save(edited))
        close();
}

} // namespace ardeno
