// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/AppStore.h"
#include "store/PreferenceKeys.h"
#include "store/ProjectOrder.h"
#include "store/Subjects.h"
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

Outcome AppStore::createProject(const QString &name, Audience audience)
{
    Outcome outcome = makeProject(name);
    if (outcome && audience == Audience::Window)
        beginWith(*outcome);
    const QUuid last(m_preferences.value(keys::lastOpenedProjectID).value_or(QString()));
    if (outcome && !project(last)) // Nobody has opened one: it is offered first.
        m_preferences.setValue(keys::lastOpenedProjectID, uuidText(*outcome));
    return concluded(std::move(outcome), audience);
}

// What is done next is most likely done for it.
void AppStore::beginWith(const QUuid &projectID)
{
    const PublishTogether group;
    selectProject(projectID);
    draftProjectID.set(projectID);
}

Outcome AppStore::makeProject(const QString &name)
{
    Outcome outcome{.subject = "create project"};
    const Project created{.name = name.trimmed()};
    if (created.name.isEmpty())
        return outcome;
    outcome.id = ProjectOrder::named(projects(), created.name);
    outcome.isDone = outcome.id.has_value();
    if (!outcome.isDone) {
        const auto append = [&](WorkspaceLibrary &library) {
            outcome.id = ProjectOrder::adopt(&library.projects, created);
            return true;
        };
        outcome.isDone = commit(append, tr("Could not create the project: "), &outcome);
    }
    if (!outcome.isDone)
        outcome.id.reset();
    return outcome;
}

void AppStore::setSelectedProjectID(const std::optional<QUuid> &id)
{
    if (selectedProjectID() != id)
        dismissNotice(); // It was about what was shown until now.
    selectedProjectID.set(id);
    if (id)
        m_preferences.setValue(keys::lastOpenedProjectID, uuidText(*id));
}

void AppStore::setSelection(const std::optional<QUuid> &id)
{
    if (selection() != id)
        dismissNotice();
    selection.set(id);
}

void AppStore::selectProject(QUuid id)
{
    const PublishTogether group;
    const Project *const chosen = project(id);
    showArchivedProjects.set(chosen && chosen->archivedAt);
    setSelectedProjectID(id);
    setSelection(ProjectOrder::newest(isShowingSamples() ? sampleHistory() : checkpoints(), id));
}

void AppStore::selectCheckpoint(const std::optional<QUuid> &id)
{
    setSelection(id);
}

void AppStore::showProjects()
{
    const PublishTogether group;
    setSelectedProjectID(std::nullopt);
    setSelection(std::nullopt);
    showArchivedProjects.set(false);
}

Outcome AppStore::updateProject(QUuid id, const std::function<void(Project &)> &change)
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
    outcome.isDone = commit(update, tr("Could not update the project: "), &outcome);
    return concluded(std::move(outcome));
}

Outcome AppStore::setProjectBlocker(QUuid id, const std::optional<QString> &reason)
{
    return updateProject(id, [&](Project &project) {
        project.blockedReason = reason ? std::optional(reason->trimmed()) : std::nullopt;
    });
}

Outcome AppStore::renameProject(QUuid id, const QString &name)
{
    const QString wanted = name.trimmed();
    const std::optional<QUuid> owner = ProjectOrder::named(projects(), wanted);
    if (wanted.isEmpty() || !project(id))
        return {};
    if (owner && owner != id) {
        Outcome refused{.subject = subjects::about("update project", id)};
        refused.fail(tr("There is a project named “%1” already.").arg(project(*owner)->name));
        return concluded(std::move(refused));
    }
    return updateProject(id, [&](Project &project) { project.name = wanted; });
}

Outcome AppStore::archive(QUuid id, const std::optional<Date> &since)
{
    return updateProject(id, [&](Project &project) { project.archivedAt = since; });
}

Outcome AppStore::setProjectArchived(QUuid id, bool archived)
{
    const Project *const found = project(id);
    if (!found || found->archivedAt.has_value() == archived)
        return {};
    const Archiving archiving{id, found->name, found->archivedAt, selectedProjectID() == id, selection()};
    Outcome outcome = archive(id, archived ? std::optional(Date::now()) : std::nullopt);
    if (!outcome)
        return outcome;
    const PublishTogether group;
    lastArchiving.set(archiving);
    if (archiving.wasShown && archived)
        showProjects();
    else if (archiving.wasShown)
        showArchivedProjects.set(false);
    return outcome;
}

Outcome AppStore::undoArchiving()
{
    if (!lastArchiving())
        return {};
    const Archiving last = *lastArchiving();
    Outcome outcome = archive(last.projectID, last.before);
    if (!outcome)
        return outcome;
    const PublishTogether group;
    lastArchiving.set(std::nullopt);
    if (last.wasShown) {
        selectProject(last.projectID);
        if (last.shown && checkpoint(*last.shown))
            selection.set(last.shown);
    }
    return outcome;
}

void AppStore::dismissArchiving()
{
    lastArchiving.set(std::nullopt);
}

Outcome AppStore::reorderProjects(QUuid dragged, std::optional<QUuid> target, const QList<QUuid> &visibleIDs)
{
    Outcome outcome{.subject = "reorder projects"};
    const auto reorder = [&](WorkspaceLibrary &library) {
        std::optional<QList<Project>> moved = ProjectOrder::moved(library.projects, dragged, target, visibleIDs);
        if (moved)
            library.projects = std::move(*moved);
        return moved.has_value();
    };
    outcome.isDone = commit(reorder, tr("Could not reorder the projects: "), &outcome);
    return concluded(std::move(outcome));
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
