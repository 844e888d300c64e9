// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/ProjectActions.h"

#include "ui/controls/Menu.h"
#include "ui/controls/Sheet.h"
#include "ui/projects/ProjectSheets.h"

#include <QCoreApplication>

namespace ardeno {

namespace {

struct ProjectActionTexts final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ProjectActionTexts)
};

} // namespace

void ProjectActions::fill(QMenu *menu, const ProjectParts &parts, const QUuid &projectID)
{
    const Project *const found = parts.library.project(projectID);
    if (!found)
        return;
    const Project project = *found;
    const auto *const owner = qobject_cast<QWidget *>(menu->parent());
    QAction *const another = addMenuItem(menu, ProjectActionTexts::tr("Rename project…"), "pencil",
                                         [owner, parts, projectID] { rename(owner, parts, projectID); });
    another->setShortcut(Qt::Key_F2);
    another->setShortcutContext(Qt::WidgetShortcut); // Only shown; the lists take the key.
    const auto edit = [parts, project] { parts.sheets.editBlocker(project); };
    if (project.blockedReason) {
        addMenuItem(menu, ProjectActionTexts::tr("Edit reason"), "pencil", edit);
        addMenuItem(menu, ProjectActionTexts::tr("Mark active"), "checkmark.circle",
                    [parts, projectID] { parts.projects.setProjectBlocker(projectID, std::nullopt); });
    } else {
        addMenuItem(menu, ProjectActionTexts::tr("Mark blocked…"), "pause.circle.fill", edit);
    }
    const bool isArchived = project.archivedAt.has_value();
    addMenuItem(
        menu, isArchived ? ProjectActionTexts::tr("Unarchive project") : ProjectActionTexts::tr("Archive project"),
        "archivebox", [parts, projectID, isArchived] { parts.projects.setProjectArchived(projectID, !isArchived); });
    menu->addSeparator();
    addMenuItem(menu, ProjectActionTexts::tr("Delete project…"), "trash",
                [parts, project] { parts.sheets.askToDelete(project); });
}

void ProjectActions::rename(const QWidget *widget, const ProjectParts &parts, const QUuid &projectID)
{
    SheetHost *const host = SheetHost::of(widget);
    const Project *const project = parts.library.project(projectID);
    if (host && project && !host->isCovering())
        host->present(makeRenameSheet(parts, *project));
}

} // namespace ardeno
