// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/OpenSheets.h"

namespace ardeno {

void OpenSheets::open(Flag flag)
{
    (this->*flag).set(true);
}

void OpenSheets::close(Flag flag)
{
    (this->*flag).set(false);
}

void OpenSheets::editBlocker(const Project &project)
{
    editingBlocker.set(project);
}

void OpenSheets::closeBlocker()
{
    editingBlocker.set(std::nullopt);
}

void OpenSheets::askToDelete(const Project &project)
{
    deletingProject.set(project);
}

void OpenSheets::closeDeletion()
{
    deletingProject.set(std::nullopt);
}

void OpenSheets::closeAll()
{
    const PublishTogether group;
    for (const Flag flag : {&OpenSheets::showCapture, &OpenSheets::showQuickCapture, &OpenSheets::showRestore,
                            &OpenSheets::showSettings, &OpenSheets::showNewProject, &OpenSheets::showExclusions})
        close(flag);
    closeBlocker();
    closeDeletion();
}

void OpenSheets::forgetProject(const QUuid &id)
{
    if (deletingProject() && deletingProject()->id == id)
        closeDeletion();
    if (editingBlocker() && editingBlocker()->id == id)
        closeBlocker();
}

} // namespace ardeno
