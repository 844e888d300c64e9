// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/ProjectOperations.h"

#include "store/ProjectOrder.h"
#include "store/Subjects.h"

#include <algorithm>

namespace ardeno {

ProjectOperations::ProjectOperations(Operations &operations, Library &library, Navigation &navigation,
                                     CaptureDrafts &drafts)
    : m_operations(operations), m_library(library), m_navigation(navigation), m_drafts(drafts)
{
}

Outcome ProjectOperations::createProject(const QString &name, Audience audience)
{
    Outcome outcome = makeProject(name);
    if (outcome && audience == Audience::Window)
        beginWith(*outcome);
    if (outcome)
        m_navigation.offer(*outcome);
    return m_operations.concluded(std::move(outcome), audience);
}

void ProjectOperations::beginWith(const QUuid &projectID)
{
    const PublishTogether group;
    m_navigation.selectProject(projectID);
    m_drafts.setDraftProjectID(projectID);
}

Outcome ProjectOperations::makeProject(const QString &name)
{
    Outcome outcome{.subject = "create project"};
    const Project created{.name = name.trimmed()};
    if (created.name.isEmpty())
        return outcome;
    outcome.id = ProjectOrder::named(m_library.projects(), created.name);
    outcome.isDone = outcome.id.has_value();
    if (!outcome.isDone) {
        const auto append = [&](WorkspaceLibrary &library) {
            outcome.id = ProjectOrder::adopt(&library.projects, created);
            return true;
        };
        outcome.isDone = m_library.commit(append, tr("Could not create the project: "), &outcome);
    }
    if (!outcome.isDone)
        outcome.id.reset();
    return outcome;
}

Outcome ProjectOperations::updateProject(QUuid id, const std::function<void(Project &)> &change)
{
    Outcome outcome{.subject = subjects::about("update project", id)};
    const auto update = [&](WorkspaceLibrary &library) {
        const auto found = std::find_if(library.projects.begin(), library.projects.end(),
                                        [&](const Project &candidate) { return candidate.id == id; });
        if (found == library.projects.end())
            return false;
        change(*found);
        return true;
    };
    outcome.isDone = m_library.commit(update, tr("Could not update the project: "), &outcome);
    return m_operations.concluded(std::move(outcome));
}

Outcome ProjectOperations::setProjectBlocker(QUuid id, const std::optional<QString> &reason)
{
    return updateProject(id, [&](Project &project) {
        project.blockedReason = reason ? std::optional(reason->trimmed()) : std::nullopt;
    });
}

Outcome ProjectOperations::renameProject(QUuid id, const QString &name)
{
    const QString wanted = name.trimmed();
    const std::optional<QUuid> owner = ProjectOrder::named(m_library.projects(), wanted);
    if (wanted.isEmpty() || !m_library.project(id))
        return {};
    if (owner && owner != id) {
        Outcome refused{.subject = subjects::about("update project", id)};
        refused.fail(tr("There is a project named “%1” already.").arg(m_library.project(*owner)->name));
        return m_operations.concluded(std::move(refused));
    }
    return updateProject(id, [&](Project &project) { project.name = wanted; });
}

Outcome ProjectOperations::archive(QUuid id, const std::optional<Date> &since)
{
    return updateProject(id, [&](Project &project) { project.archivedAt = since; });
}

Outcome ProjectOperations::setProjectArchived(QUuid id, bool archived)
{
    const Project *const found = m_library.project(id);
    if (!found || found->archivedAt.has_value() == archived)
        return {};
    const Archiving archiving{id, found->name, found->archivedAt, m_navigation.selectedProjectID() == id,
                              m_navigation.selection()};
    Outcome outcome = archive(id, archived ? std::optional(Date::now()) : std::nullopt);
    if (!outcome)
        return outcome;
    const PublishTogether group;
    lastArchiving.set(archiving);
    if (archiving.wasShown && archived)
        m_navigation.showProjects();
    else if (archiving.wasShown)
        m_navigation.setShowArchivedProjects(false);
    return outcome;
}

Outcome ProjectOperations::undoArchiving()
{
    if (!lastArchiving())
        return {};
    const Archiving last = *lastArchiving();
    Outcome outcome = archive(last.projectID, last.before);
    if (!outcome)
        return outcome;
    const PublishTogether group;
    lastArchiving.set(std::nullopt);
    if (last.wasShown)
        m_navigation.returnTo(last.projectID, last.shown);
    return outcome;
}

void ProjectOperations::dismissArchiving()
{
    lastArchiving.set(std::nullopt);
}

Outcome ProjectOperations::reorderProjects(QUuid dragged, std::optional<QUuid> target, const QList<QUuid> &visibleIDs)
{
    Outcome outcome{.subject = "reorder projects"};
    const auto reorder = [&](WorkspaceLibrary &library) {
        std::optional<QList<Project>> moved = ProjectOrder::moved(library.projects, dragged, target, visibleIDs);
        if (moved)
            library.projects = std::move(*moved);
        return moved.has_value();
    };
    outcome.isDone = m_library.commit(reorder, tr("Could not reorder the projects: "), &outcome);
    return m_operations.concluded(std::move(outcome));
}

void ProjectOperations::forgetProject(const QUuid &id)
{
    if (lastArchiving() && lastArchiving()->projectID == id)
        lastArchiving.set(std::nullopt);
}

void ProjectOperations::forgetMissing()
{
    if (lastArchiving() && !m_library.project(lastArchiving()->projectID))
        lastArchiving.set(std::nullopt);
}

} // namespace ardeno
