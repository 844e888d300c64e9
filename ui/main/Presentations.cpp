// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/Presentations.h"

#include "ui/controls/Alert.h"
#include "ui/controls/InputWatch.h"
#include "ui/projects/CheckpointActions.h"
#include "ui/projects/ProjectSheets.h"

#include <QCoreApplication>

namespace ardeno {

namespace {

struct PresentationTexts final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::PresentationTexts)
};

} // namespace

Presentations::Presentations(AppStore &store, const Screens &screens, SheetHost &host)
    : m_store(store), m_screens(screens), m_host(host)
{
    m_observations.watch([this] { showSheets(); }, store.showCapture, store.showRestore, store.showSettings,
                         store.showExclusions, store.showNewProject, store.editingBlocker, store.selection);
    m_observations.watch([this] { showDeletingProject(); }, store.deletingProject);
    m_observations.watch([this] { showError(); }, store.error);
}

void Presentations::follow(QPointer<Sheet> &slot, bool isWanted, const Make &make)
{
    if (isWanted && !slot && make) {
        slot = make();
        m_host.present(slot);
    } else if (!isWanted && slot) {
        std::exchange(slot, nullptr)->close();
    }
}

void Presentations::showSheets()
{
    const auto from = [this](const Screens::MakeSheet &screen) {
        return screen ? Make([this, &screen] { return screen(m_store); }) : Make();
    };
    follow(m_capture, m_store.showCapture(), from(m_screens.capture));
    follow(m_restore, m_store.showRestore() && m_store.selected(), from(m_screens.restore));
    follow(m_preferences, m_store.showSettings(), from(m_screens.preferences));
    follow(m_exclusions, m_store.showExclusions(), from(m_screens.exclusions));
    follow(m_newProject, m_store.showNewProject(), [this] { return makeNewProjectSheet(m_store); });
    follow(m_blocker, m_store.editingBlocker().has_value(),
           [this] { return makeProjectBlockerSheet(m_store, *m_store.editingBlocker()); });
}

void Presentations::showDeletingProject()
{
    if (!m_store.deletingProject() || m_deleting)
        return;
    const Project project = *m_store.deletingProject();
    const qsizetype count = m_store.checkpointsFor(project.id).size();
    const AlertText question{
        .title = PresentationTexts::tr("Delete project?"),
        .message = PresentationTexts::tr(
                       "Delete “%1” and all %n checkpoints, including their local screenshots and recordings? This "
                       "cannot be undone.",
                       "", static_cast<int>(count))
                       .arg(project.name),
        .confirm = PresentationTexts::tr("Delete project"),
        .cancel = PresentationTexts::tr("Cancel"),
        .kind = Button::Kind::Destructive,
    };
    m_deleting = presentAlert(m_host, question, [this, project, count](bool isConfirmed) {
        m_deleting = nullptr;
        m_store.deletingProject.set(std::nullopt);
        if (isConfirmed && m_store.checkpointsFor(project.id).size() != count)
            m_store.deletingProject.set(project); // A command has saved another one: it is asked anew.
        else if (isConfirmed)
            m_store.deleteProject(project.id);
    });
}

void Presentations::showError()
{
    if (m_error && m_error->accessibleDescription() != m_store.error())
        std::exchange(m_error, nullptr)->close();
    if (!m_store.error() || m_error)
        return;
    if (InputWatch::instance().isWriting()) { // It comes when the sentence is finished.
        InputWatch::instance().whenPaused(&m_waiting, [this] { showError(); });
        return;
    }
    const QString sentence = *m_store.error();
    const AlertText text{.title = PresentationTexts::tr("Something needs attention"),
                         .message = sentence,
                         .confirm = PresentationTexts::tr("OK")};
    m_error = presentAlert(m_host, text, [this, sentence](bool) {
        // A newer one has an alert of its own.
        if (m_store.error() == sentence)
            m_store.dismissError();
    });
}

void Presentations::confirmDelete()
{
    const Checkpoint *const checkpoint = m_store.selected();
    if (!checkpoint || m_host.isCovering())
        return;
    const AlertText question{
        .title = PresentationTexts::tr("Delete this checkpoint and its local recording?"),
        .detail = CheckpointActions::describe(m_store, *checkpoint),
        .confirm = PresentationTexts::tr("Delete checkpoint"),
        .cancel = PresentationTexts::tr("Cancel"),
        .kind = Button::Kind::Destructive,
    };
    presentAlert(m_host, question, [this, id = checkpoint->id](bool isConfirmed) {
        if (isConfirmed)
            m_store.deleteCheckpoint(id);
    });
}

} // namespace ardeno
