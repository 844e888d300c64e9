// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/checkpoint/EditSheet.h"

#include "store/CheckpointEditing.h"
#include "store/KeptForms.h"
#include "store/Messages.h"
#include "store/Navigation.h"
#include "support/Failure.h"
#include "ui/controls/DropDown.h"
#include "ui/controls/Fields.h"
#include "ui/controls/Label.h"
#include "ui/controls/ScrollColumn.h"
#include "ui/controls/Surfaces.h"
#include "ui/controls/TextArea.h"
#include "json/Json.h"

namespace ardeno {

namespace {

// What was typed and chosen; what was not touched is absent.
struct KeptDetails {
    QUuid checkpointID = {};
    std::optional<QUuid> projectID = {};
    std::optional<QString> title = {};
    std::optional<QString> objective = {};
    std::optional<QString> nextStep = {};

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"checkpointID", &KeptDetails::checkpointID},
            Field{"projectID", &KeptDetails::projectID},
            Field{"title", &KeptDetails::title},
            Field{"objective", &KeptDetails::objective},
            Field{"nextStep", &KeptDetails::nextStep},
        };
    }

    static std::optional<KeptDetails> of(const KeptForms &forms)
    {
        try {
            if (!forms.details().isEmpty())
                return json::decode<KeptDetails>(forms.details().toUtf8());
        } catch (const Failure &) {
            // Nobody can say whose it was.
        }
        return std::nullopt;
    }
};

} // namespace

EditSheet::EditSheet(const EditParts &parts, const Checkpoint &checkpoint)
    : Sheet(tr("Checkpoint details"), 560),
      m_parts(parts),
      m_id(checkpoint.id),
      m_projectBefore(checkpoint.projectID.value_or(QUuid())),
      m_keptNote(new QWidget),
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
    makeMarked("exclamationmark.circle", Role::AmberText,
               makeParagraph(tr("Ardeno was ended before this was saved. Save it now, or cancel to discard it."),
                             TextStyle::Body, Role::AmberText),
               m_keptNote);
    m_keptNote->hide();
    column()->addWidget(m_keptNote);
    column()->addWidget(makeForm(), 1);
    m_title->setText(checkpoint.title);
    m_title->setModified(false);
    m_objective->setText(checkpoint.objective);
    m_nextStep->setText(checkpoint.nextStep);
    addButton(tr("Cancel"), Button::Kind::Bordered, [this] { close(); });
    addButton(tr("Save context"), Button::Kind::Prominent, [this] { save(); });
    setFirstFocus(m_title);
    setHoldsInput([this] {
        return m_title->isModified() || m_objective->isModified() || m_nextStep->isModified() ||
               m_project->current() != m_projectBefore;
    });
    setOnKeep([this] { keep(); });
    fillKept();
}

QWidget *EditSheet::makeForm()
{
    auto *form = new ScrollColumn(14);
    form->column()->addLayout(makeLabelled(tr("Project"), m_project));
    form->column()->addLayout(makeLabelled(tr("Checkpoint title"), m_title));
    form->column()->addLayout(makeLabelled(tr("Where you left off"), m_objective));
    form->column()->addLayout(makeLabelled(tr("Your next small step"), m_nextStep));
    return form;
}

void EditSheet::keep() const
{
    KeptDetails kept{.checkpointID = m_id};
    if (m_project->current() != m_projectBefore)
        kept.projectID = m_project->current().toUuid();
    if (m_title->isModified())
        kept.title = m_title->text();
    if (m_objective->isModified())
        kept.objective = m_objective->text();
    if (m_nextStep->isModified())
        kept.nextStep = m_nextStep->text();
    m_parts.kept.keepDetails(QString::fromUtf8(json::encode(kept)));
}

void EditSheet::fillKept()
{
    const std::optional<KeptDetails> kept = KeptDetails::of(m_parts.kept);
    if (!kept || kept->checkpointID != m_id)
        return;
    m_keptNote->show();
    if (kept->projectID && m_parts.library.project(*kept->projectID))
        m_project->setCurrent(*kept->projectID);
    if (kept->title) {
        m_title->selectAll();
        m_title->insert(*kept->title);
        m_title->setModified(true);
    }
    if (kept->objective)
        m_objective->retype(*kept->objective);
    if (kept->nextStep)
        m_nextStep->retype(*kept->nextStep);
    setOnCancel([this] { m_parts.kept.keepDetails({}); }); // It has been saved or discarded.
}

void EditSheet::reopenKept(const EditParts &parts, Navigation &navigation, SheetHost &host)
{
    const std::optional<KeptDetails> kept = KeptDetails::of(parts.kept);
    if (!kept)
        return;
    const Checkpoint *const stored = parts.library.checkpoint(kept->checkpointID);
    if (stored) {
        navigation.selectProject(stored->projectID.value_or(QUuid()));
        navigation.selectCheckpoint(kept->checkpointID);
    }
    // Of one that was deleted meanwhile the text is shown, too, to be copied.
    host.present(new EditSheet(parts, stored ? *stored : Checkpoint{.id = kept->checkpointID}));
}

DropDown *EditSheet::makeProjects(const Checkpoint &checkpoint)
{
    auto *projects = new DropDown(tr("Project"));
    QList<DropDown::Option> options;
    for (const Project &project : m_parts.library.projects())
        options.append({project.name, project.id});
    projects->setOptions(options);
    projects->setCurrent(checkpoint.projectID.value_or(QUuid()));
    return projects;
}

void EditSheet::save()
{
    const Checkpoint *const stored = m_parts.library.checkpoint(m_id);
    if (!stored) { // What was typed stays, to be copied.
        m_parts.messages.report(tr("This checkpoint is no longer in the library, so nothing could be saved."));
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
    if (m_parts.editing.save(edited))
        close();
}

} // namespace ardeno
