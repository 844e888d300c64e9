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

QString titleOf(const AppStore &store, const Checkpoint &checkpoint)
{
    const Project *const project = store.library.project(checkpoint.projectID.value_or(QUuid()));
    return ProjectText::timelineTitle(checkpoint, project ? project->name : QString());
}

QCoro::Task<void> saveAtOnce(AppStore &store)
{
    const Outcome outcome =
        co_await store.form.captureMoment(store.drafts.draftTitle(), store.drafts.draftNext(), CaptureKind::Checkpoint);
    // Without a form there is no other place for what went wrong.
    if (outcome.captureIssue)
        store.messages.report(*outcome.captureIssue, outcome.subject);
}

} // namespace

void CheckpointActions::fill(QMenu *menu, AppStore &store, const Checkpoint &checkpoint, QWidget *owner,
                             std::function<void()> opened)
{
    addMenuItem(menu, CheckpointActionTexts::tr("Open checkpoint"), "arrow.right",
                [&store, id = checkpoint.id, opened = std::move(opened)] {
                    store.navigation.selectCheckpoint(id);
                    if (opened)
                        opened();
                });
    if (checkpoint.isSample)
        return;
    menu->addSeparator();
    addMenuItem(menu, CheckpointActionTexts::tr("Delete checkpoint…"), "trash",
                [&store, checkpoint, owner] { confirmDelete(owner, store, checkpoint); });
}

void CheckpointActions::confirmDelete(QWidget *owner, AppStore &store, const Checkpoint &checkpoint)
{
    SheetHost *const host = SheetHost::of(owner);
    if (!host)
        return;
    const AlertText question{
        .title = CheckpointActionTexts::tr("Delete this checkpoint?"),
        .message = CheckpointActionTexts::tr("This removes “%1” and its local screenshot or recording.")
                       .arg(titleOf(store, checkpoint)),
        .detail = describe(store, checkpoint),
        .confirm = CheckpointActionTexts::tr("Delete checkpoint"),
        .cancel = CheckpointActionTexts::tr("Cancel"),
        .kind = Button::Kind::Destructive,
    };
    presentAlert(*host, question, [&store, id = checkpoint.id](bool isConfirmed) {
        if (isConfirmed)
            store.deletion.deleteCheckpoint(id);
    });
}

QString CheckpointActions::describe(const AppStore &store, const Checkpoint &checkpoint)
{
    const Project *const project = store.library.project(checkpoint.projectID.value_or(QUuid()));
    return CheckpointActionTexts::tr("“%1”, saved %2 in the project “%3”.")
        .arg(titleOf(store, checkpoint), DateText::mediumDateShortTime(checkpoint.createdAt),
             project ? project->name : QString());
}

void CheckpointActions::requestSave(AppStore &store, bool hasForm)
{
    if (store.operations.busy())
        return;
    if (hasForm) {
        store.setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
        return;
    }
    // The sample takes no checkpoints: what comes first is a project of one's own.
    const Project *const selected = store.navigation.selectedProject();
    if (!selected || selected->isSample) {
        store.sheets.open(&OpenSheets::showNewProject);
        return;
    }
    store.drafts.setDraftProjectID(selected->id);
    saveAtOnce(store);
}

} // namespace ardeno
