// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/AppStore.h"
#include "store/PreferenceKeys.h"
#include "store/ProjectOrder.h"
#include "support/Text.h"

#include <algorithm>

namespace ardeno {

namespace {

template <typename Record>
const Record *find(const QList<Record> &records, const QUuid &id)
{
    const auto found =
        std::find_if(records.begin(), records.end(), [&](const Record &record) { return record.id == id; });
    return found == records.end() ? nullptr : &*found;
}

} // namespace

std::optional<QUuid> AppStore::createProject(const QString &name)
{
    clearMessages();
    const QString trimmed = name.trimmed();
    if (trimmed.isEmpty())
        return std::nullopt;
    const QList<Project> &existing = projects();
    const auto same = std::find_if(existing.begin(), existing.end(),
                                   [&](const Project &other) { return Text::equalNames(other.name, trimmed); });
    if (same != existing.end()) {
        const QUuid id = same->id;
        selectProject(id);
        return id;
    }
    const Project created{.name = trimmed};
    WorkspaceLibrary changed = library();
    changed.projects.append(created);
    if (!commit(std::move(changed), tr("Could not create the project: ")))
        return std::nullopt;
    selectProject(created.id);
    return created.id;
}

void AppStore::setSelectedProjectID(const std::optional<QUuid> &id)
{
    selectedProjectID.set(id);
    if (id)
        m_preferences.setValue(keys::lastOpenedProjectID, uuidText(*id));
}

void AppStore::selectProject(QUuid id)
{
    const PublishTogether group;
    const Project *const chosen = project(id);
    showArchivedProjects.set(chosen && chosen->archivedAt);
    setSelectedProjectID(id);
    selection.set(ProjectOrder::newest(isShowingSamples() ? sampleHistory() : checkpoints(), id));
}

void AppStore::selectCheckpoint(const std::optional<QUuid> &id)
{
    selection.set(id);
}

void AppStore::showProjects()
{
    const PublishTogether group;
    setSelectedProjectID(std::nullopt);
    selection.set(std::nullopt);
    showArchivedProjects.set(false);
}

bool AppStore::updateProject(QUuid id, const std::function<void(Project &)> &change)
{
    clearMessages();
    WorkspaceLibrary changed = library();
    const auto found = std::find_if(changed.projects.begin(), changed.projects.end(),
                                    [&](const Project &candidate) { return candidate.id == id; });
    if (found == changed.projects.end())
        return false;
    change(*found);
    return commit(std::move(changed), tr("Could not update the project: "));
}

bool AppStore::setProjectBlocker(QUuid id, const std::optional<QString> &reason)
{
    return updateProject(id, [&](Project &project) {
        project.blockedReason = reason ? std::optional(reason->trimmed()) : std::nullopt;
    });
}

bool AppStore::setProjectArchived(QUuid id, bool archived)
{
    return updateProject(
        id, [&](Project &project) { project.archivedAt = archived ? std::optional(Date::now()) : std::nullopt; });
}

void AppStore::reorderProjects(QUuid dragged, QUuid target, const QList<QUuid> &visibleIDs)
{
    std::optional<QList<Project>> moved = ProjectOrder::moved(projects(), dragged, target, visibleIDs);
    if (!moved)
        return;
    clearMessages();
    WorkspaceLibrary changed = library();
    changed.projects = std::move(*moved);
    commit(std::move(changed), tr("Could not reorder the projects: "));
}

QList<Project> AppStore::availableProjects() const
{
    QList<Project> available = projects();
    available.removeIf([](const Project &project) { return project.archivedAt.has_value(); });
    return available;
}

QList<Project> AppStore::filteredProjects() const
{
    const QString &sought = search();
    const bool isSample = isShowingSamples();
    QSet<QUuid> withMatchingCheckpoint;
    if (!sought.isEmpty())
        withMatchingCheckpoint = m_projectSearch.withTitle(sought, isSample ? sampleHistory() : checkpoints());
    const auto matches = [&](const Project &project) {
        return sought.isEmpty() || Text::containsName(project.name, sought) ||
               (project.blockedReason && Text::containsName(*project.blockedReason, sought)) ||
               withMatchingCheckpoint.contains(project.id);
    };
    QList<Project> filtered = isSample ? QList<Project>{m_sampleProject} : projects();
    filtered.removeIf([&](const Project &project) {
        return project.archivedAt.has_value() != showArchivedProjects() || !matches(project);
    });
    return filtered;
}

const Project *AppStore::project(const QUuid &id) const
{
    return find(projects(), id);
}

const Project *AppStore::selectedProject() const
{
    if (isShowingSamples() && selectedProjectID() == m_sampleProject.id)
        return &m_sampleProject;
    return selectedProjectID() ? project(*selectedProjectID()) : nullptr;
}

QList<Checkpoint> AppStore::checkpointsFor(const QUuid &projectID) const
{
    return m_histories.of(projectID, isShowingSamples() ? sampleHistory() : checkpoints());
}

const Checkpoint *AppStore::checkpoint(const QUuid &id) const
{
    return find(checkpoints(), id);
}

const Checkpoint *AppStore::selected() const
{
    if (!selection())
        return nullptr;
    return isShowingSamples() ? find(sampleHistory(), *selection()) : checkpoint(*selection());
}

bool AppStore::isWorkspaceActive(const Checkpoint &checkpoint) const
{
    const QSet<QString> &running = runningApplicationIDs();
    return !checkpoint.apps.isEmpty() && std::all_of(checkpoint.apps.begin(), checkpoint.apps.end(),
                                                     [&](const SavedApp &app) { return running.contains(app.id); });
}

} // namespace ardeno
