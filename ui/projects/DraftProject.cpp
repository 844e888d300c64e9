// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/DraftProject.h"

#include "ui/controls/Choice.h"

namespace ardeno {

bool DraftProject::isNew(const AppStore &store)
{
    const Project *const chosen =
        store.drafts.draftProjectID() ? store.library.project(*store.drafts.draftProjectID()) : nullptr;
    return !chosen || chosen->archivedAt;
}

void DraftProject::offer(Choice *choice, const QString &newProject, AppStore &store, Observations &observations)
{
    choice->setOnChoose([&store](const QVariant &chosen) {
        const QUuid id = chosen.toUuid();
        store.drafts.setDraftProjectID(id.isNull() ? std::nullopt : std::optional(id));
    });
    const auto show = [choice, newProject, &store] {
        QList<Choice::Option> options;
        for (const Project &project : store.library.availableProjects())
            options.append({project.name, project.id});
        options.append({newProject, QUuid(), Choice::Apart::Yes});
        choice->setOptions(options);
        choice->setCurrent(isNew(store) ? QUuid() : *store.drafts.draftProjectID());
    };
    observations.watch(show, store.library.projects, store.drafts.draftProjectID);
}

} // namespace ardeno
