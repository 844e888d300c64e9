// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/CheckpointActions.h"

#include "ui/controls/Alert.h"
#include "ui/controls/Menu.h"
#include "ui/projects/ProjectText.h"

#include <QCoreApplication>

namespace ardeno {

namespace {

struct CheckpointActionTexts final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::CheckpointActionTexts)
};

QString titleOf(const Library &library, const Checkpoint &checkpoint)
{
    const Project *const project = library.project(checkpoint.projectID.value_or(QUuid()));
    return ProjectText::timelineTitle(checkpoint, project ? project->name : QString());
}

QCoro::Task<void> saveAtOnce(CaptureParts parts)
{
    const Outcome outcome =
        co_await parts.form.captureMoment(parts.drafts.draftTitle(), parts.drafts.draftNext(), CaptureKind::Checkpoint);
    // Without a form there is no other place for what went wrong.
    if (outcome.captureIssue)
        parts.messages.report(*outcome.captureIssue, outcome.subject);
}

} // namespace

void CheckpointActions::fill(QMenu *menu, const CheckpointListParts &parts, const Checkpoint &checkpoint,
                             QWidget *owner, std::function<void()> opened)
{
    addMenuItem(menu, CheckpointActionTexts::tr("Open checkpoint"), "arrow.right",
                [parts, id = checkpoint.id, opened = std::move(opened)] {
                    parts.navigation.selectCheckpoint(id);
                    if (opened)
                        opened();
                });
    if (checkpoint.isSample)
        return;
    menu->addSeparator();
    addMenuItem(menu, CheckpointActionTexts::tr("Delete checkpoint…"), "trash",
                [parts, checkpoint, owner] { confirmDelete(owner, parts, checkpoint); });
}

void CheckpointActions::confirmDelete(QWidget *owner, const CheckpointListParts &parts, const Checkpoint &checkpoint)
{
    SheetHost *const host = SheetHost::of(owner);
    if (!host)
        return;
    const AlertText question{
        .title = CheckpointActionTexts::tr("Delete this checkpoint?"),
        .message = CheckpointActionTexts::tr("This removes “%1” and its local screenshot or recording.")
                       .arg(titleOf(parts.library, checkpoint)),
        .detail = describe(parts.library, checkpoint),
        .confirm = CheckpointActionTexts::tr("Delete checkpoint"),
        .cancel = CheckpointActionTexts::tr("Cancel"),
        .kind = Button::Kind::Destructive,
    };
    presentAlert(*host, question, [parts, id = checkpoint.id](bool isConfirmed) {
        if (isConfirmed)
            parts.deletion.deleteCheckpoint(id);
    });
}

QString CheckpointActions::describe(const Library &library, const Checkpoint &checkpoint)
{
    const Project *const project = library.project(checkpoint.projectID.value_or(QUuid()));
    return CheckpointActionTexts::tr("“%1”, saved %2 in the project “%3”.")
        .arg(titleOf(library, checkpoint), DateText::mediumDateShortTime(checkpoint.createdAt),
             project ? project->name : QString());
}

void CheckpointActions::requestSave(const CaptureParts &parts, const Navigation &navigation, bool hasForm)
{
    if (parts.operations.busy())
        return;
    if (hasForm) {
        parts.setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
        return;
    }
    // The sample takes no checkpoints: what comes first is a project of one's own.
    const Project *const selected = navigation.selectedProject();
    if (!selected || selected->isSample) {
        parts.sheets.open(&OpenSheets::showNewProject);
        return;
    }
    parts.drafts.setDraftProjectID(selected->id);
    saveAtOnce(parts);
}

} // namespace ardeno
