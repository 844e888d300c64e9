// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/DraftProject.h"

#include "ui/controls/DropDown.h"

namespace ardeno {

bool DraftProject::isNew(const Library &library, const CaptureDrafts &drafts)
{
    const Project *const chosen = drafts.draftProjectID() ? library.project(*drafts.draftProjectID()) : nullptr;
    return !chosen || chosen->archivedAt;
}

void DraftProject::offer(DropDown *choice, const QString &newProject, const Library &library, CaptureDrafts &drafts,
                         Subscriptions &subscriptions)
{
    choice->setOnChoose([&drafts](const QVariant &chosen) {
        const QUuid id = chosen.toUuid();
        drafts.setDraftProjectID(id.isNull() ? std::nullopt : std::optional(id));
    });
    const auto show = [choice, newProject, &library, &drafts] {
        QList<DropDown::Option> options;
        for (const Project &project : library.availableProjects())
            options.append({project.name, project.id});
        options.append({newProject, QUuid(), DropDown::Apart::Yes});
        choice->setOptions(options);
        choice->setCurrent(isNew(library, drafts) ? QUuid() : *drafts.draftProjectID());
    };
    subscriptions.watch(show, library.projects, drafts.draftProjectID);
}

} // namespace ardeno
