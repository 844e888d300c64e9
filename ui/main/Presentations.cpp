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

Presentations::Presentations(const ProjectParts &parts, Messages &messages, Deletion &deletion, const Screens &screens,
                             SheetHost &host)
    : m_parts(parts), m_messages(messages), m_deletion(deletion), m_screens(screens), m_host(host)
{
    m_subscriptions.watch([this] { showSheets(); }, parts.sheets.showCapture, parts.sheets.showRestore,
                          parts.sheets.showSettings, parts.sheets.showExclusions, parts.sheets.showNewProject,
                          parts.sheets.editingBlocker, parts.navigation.selection);
    m_subscriptions.watch([this] { showDeletingProject(); }, parts.sheets.deletingProject);
    m_subscriptions.watch([this] { showError(); }, messages.error);
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
    const auto from = [](const Screens::MakeSheet &screen) {
        return screen ? Make([&screen] { return screen(); }) : Make();
    };
    follow(m_capture, m_parts.sheets.showCapture(), from(m_screens.capture));
    follow(m_restore, m_parts.sheets.showRestore() && m_parts.navigation.selected(), from(m_screens.restore));
    follow(m_preferences, m_parts.sheets.showSettings(), from(m_screens.preferences));
    follow(m_exclusions, m_parts.sheets.showExclusions(), from(m_screens.exclusions));
    follow(m_newProject, m_parts.sheets.showNewProject(), [this] { return makeNewProjectSheet(m_parts); });
    follow(m_blocker, m_parts.sheets.editingBlocker().has_value(),
           [this] { return makeProjectBlockerSheet(m_parts, *m_parts.sheets.editingBlocker()); });
}

void Presentations::showDeletingProject()
{
    if (!m_parts.sheets.deletingProject() || m_deleting)
        return;
    const Project project = *m_parts.sheets.deletingProject();
    const qsizetype count = m_parts.library.checkpointsFor(project.id).size();
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
        m_parts.sheets.closeDeletion();
        if (isConfirmed && m_parts.library.checkpointsFor(project.id).size() != count)
            m_parts.sheets.askToDelete(project); // A command has saved another one: it is asked anew.
        else if (isConfirmed)
            m_deletion.deleteProject(project.id);
    });
}

void Presentations::showError()
{
    if (m_error && m_error->accessibleDescription() != m_messages.error())
        std::exchange(m_error, nullptr)->close();
    if (!m_messages.error() || m_error)
        return;
    if (InputWatch::instance().isWriting()) { // It comes when the sentence is finished.
        InputWatch::instance().whenPaused(&m_waiting, [this] { showError(); });
        return;
    }
    const QString sentence = *m_messages.error();
    const AlertText text{.title = PresentationTexts::tr("Something needs attention"),
                         .message = sentence,
                         .confirm = PresentationTexts::tr("OK")};
    m_error = presentAlert(m_host, text, [this, sentence](bool) {
        // A newer one has an alert of its own.
        if (m_messages.error() == sentence)
            m_messages.dismissError();
    });
}

void Presentations::confirmDelete()
{
    const Checkpoint *const checkpoint = m_parts.navigation.selected();
    if (!checkpoint || m_host.isCovering())
        return;
    const AlertText question{
        .title = PresentationTexts::tr("Delete this checkpoint and its local recording?"),
        .detail = CheckpointActions::describe(m_parts.library, *checkpoint),
        .confirm = PresentationTexts::tr("Delete checkpoint"),
        .cancel = PresentationTexts::tr("Cancel"),
        .kind = Button::Kind::Destructive,
    };
    presentAlert(m_host, question, [this, id = checkpoint->id](bool isConfirmed) {
        if (isConfirmed)
            m_deletion.deleteCheckpoint(id);
    });
}

} // namespace ardeno
