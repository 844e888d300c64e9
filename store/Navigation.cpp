// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/Navigation.h"

#include "store/PreferenceKeys.h"
#include "store/ProjectOrder.h"
#include "support/Text.h"

#include <algorithm>

namespace ardeno {

Navigation::Navigation(const Library &library, Messages &messages, Preferences &preferences)
    : launchOverview(preferences.value(keys::launchOverview).value_or(false)),
      m_library(library),
      m_messages(messages),
      m_preferences(preferences),
      m_mirror(mirror(launchOverview, preferences, keys::launchOverview))
{
}

void Navigation::chooseFirst(bool seedsStarterExample)
{
    const bool isSeeded = m_preferences.value(keys::starterExampleMigrationV2).value_or(false);
    if (seedsStarterExample && m_library.isLibraryRead() && !isSeeded)
        m_preferences.setValue(keys::starterExampleMigrationV2, true);
    if (launchOverview())
        return;
    const QUuid last = lastOpenedProject();
    const QList<Project> available = m_library.availableProjects();
    const QUuid sample = m_library.sampleProject().id;
    if (m_library.project(last))
        selectProject(last);
    else if (m_library.isShowingSamples() && (!isSeeded || last == sample))
        selectProject(sample);
    else if (!available.isEmpty())
        selectProject(available.first().id);
}

void Navigation::setSelectedProjectID(const std::optional<QUuid> &id)
{
    if (selectedProjectID() != id)
        m_messages.dismissNotice(); // It was about what was shown until now.
    selectedProjectID.set(id);
    if (id)
        m_preferences.setValue(keys::lastOpenedProjectID, uuidText(*id));
}

void Navigation::setSelection(const std::optional<QUuid> &id)
{
    if (selection() != id)
        m_messages.dismissNotice();
    selection.set(id);
}

void Navigation::selectProject(QUuid id)
{
    const PublishTogether group;
    const Project *const chosen = m_library.project(id);
    showArchivedProjects.set(chosen && chosen->archivedAt);
    setSelectedProjectID(id);
    const bool isSample = m_library.isShowingSamples();
    setSelection(ProjectOrder::newest(isSample ? m_library.sampleHistory() : m_library.checkpoints(), id));
}

void Navigation::selectCheckpoint(const std::optional<QUuid> &id)
{
    setSelection(id);
}

void Navigation::showProjects()
{
    const PublishTogether group;
    setSelectedProjectID(std::nullopt);
    setSelection(std::nullopt);
    showArchivedProjects.set(false);
}

void Navigation::show(const Checkpoint &saved)
{
    const PublishTogether group;
    setSelectedProjectID(m_library.checkpoint(saved.id)->projectID);
    showArchivedProjects.set(selectedProject() && selectedProject()->archivedAt); // The list that the project is in.
    setSelection(saved.id);
}

void Navigation::returnTo(const QUuid &projectID, const std::optional<QUuid> &checkpointID)
{
    selectProject(projectID);
    if (checkpointID && m_library.checkpoint(*checkpointID))
        selection.set(checkpointID);
}

void Navigation::setLaunchOverview(bool isOn)
{
    launchOverview.set(isOn);
}

void Navigation::setShowArchivedProjects(bool areShown)
{
    showArchivedProjects.set(areShown);
}

void Navigation::setSearch(const QString &text)
{
    search.set(text);
}

QList<Project> Navigation::filteredProjects() const
{
    const QString &sought = search();
    const bool isSample = m_library.isShowingSamples();
    QSet<QUuid> withMatchingCheckpoint;
    if (!sought.isEmpty())
        withMatchingCheckpoint =
            m_projectSearch.withTitle(sought, isSample ? m_library.sampleHistory() : m_library.checkpoints());
    const auto matches = [&](const Project &project) {
        return sought.isEmpty() || Text::containsName(project.name, sought) ||
               (project.blockedReason && Text::containsName(*project.blockedReason, sought)) ||
               withMatchingCheckpoint.contains(project.id);
    };
    QList<Project> filtered = isSample ? QList<Project>{m_library.sampleProject()} : m_library.projects();
    filtered.removeIf([&](const Project &project) {
        return project.archivedAt.has_value() != showArchivedProjects() || !matches(project);
    });
    return filtered;
}

const Project *Navigation::selectedProject() const
{
    if (m_library.isShowingSamples() && selectedProjectID() == m_library.sampleProject().id)
        return &m_library.sampleProject();
    return selectedProjectID() ? m_library.project(*selectedProjectID()) : nullptr;
}

const Checkpoint *Navigation::selected() const
{
    if (!selection())
        return nullptr;
    if (!m_library.isShowingSamples())
        return m_library.checkpoint(*selection());
    const QList<Checkpoint> &samples = m_library.sampleHistory();
    const auto found = std::find_if(samples.begin(), samples.end(),
                                    [&](const Checkpoint &sample) { return sample.id == *selection(); });
    return found == samples.end() ? nullptr : &*found;
}

QUuid Navigation::lastOpenedProject() const
{
    return QUuid(m_preferences.value(keys::lastOpenedProjectID).value_or(QString()));
}

void Navigation::offer(const QUuid &projectID)
{
    if (!m_library.project(lastOpenedProject()))
        m_preferences.setValue(keys::lastOpenedProjectID, uuidText(projectID));
}

void Navigation::leaveMissingProject()
{
    if (!selectedProjectID() || selectedProject())
        return; // The sample goes with the first project.
    setSelectedProjectID(std::nullopt);
    setSelection(std::nullopt);
}

void Navigation::leaveMissingCheckpoint()
{
    if (selection() && !selected())
        setSelection(selectedProjectID() ? ProjectOrder::newest(m_library.checkpoints(), *selectedProjectID())
                                         : std::nullopt);
}

void Navigation::forgetProject(const QUuid &id)
{
    if (selectedProjectID() == id) {
        setSelectedProjectID(std::nullopt);
        setSelection(std::nullopt);
    }
    if (m_preferences.value(keys::lastOpenedProjectID) == uuidText(id))
        m_preferences.remove(keys::lastOpenedProjectID);
}

} // namespace ardeno
