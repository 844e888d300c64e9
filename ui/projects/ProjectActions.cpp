// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/ProjectActions.h"

#include "ui/controls/Menu.h"

namespace ardeno {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("ardeno::ProjectActions", text);
}

} // namespace

void ProjectActions::fill(QMenu *menu, AppStore &store, const QUuid &projectID)
{
    const Project *const found = store.project(projectID);
    if (!found)
        return;
    const Project project = *found;
    const auto edit = [&store, project] { store.editingBlocker.set(project); };
    if (project.blockedReason) {
        addMenuItem(menu, tr("Edit reason"), "pencil", edit);
        addMenuItem(menu, tr("Mark active"), "checkmark.circle",
                    [&store, projectID] { store.setProjectBlocker(projectID, std::nullopt); });
    } else {
        addMenuItem(menu, tr("Mark blocked…"), "pause.circle.fill", edit);
    }
    const bool isArchived = project.archivedAt.has_value();
    addMenuItem(menu, isArchived ? tr("Unarchive project") : tr("Archive project"), "archivebox",
                [&store, projectID, isArchived] { store.setProjectArchived(projectID, !isArchived); });
    menu->addSeparator();
    addMenuItem(menu, tr("Delete project…"), "trash", [&store, project] { store.deletingProject.set(project); });
}

} // namespace ardeno
