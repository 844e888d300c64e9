// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Library.h"
#include "store/PreferenceMirror.h"
#include "store/ProjectSearch.h"

namespace ardeno {

// Where the user is: the project and the checkpoint that are shown, and the list of projects beside them. What is shown
// elsewhere takes the notice about the former page with it.
class Navigation final {
public:
    template <typename T>
    using Published = PublishedBy<T, Navigation>;

    Published<std::optional<QUuid>> selectedProjectID;
    Published<std::optional<QUuid>> selection; // The checkpoint shown.
    Published<bool> launchOverview;
    Published<bool> showArchivedProjects;
    Published<QString> search;

    Navigation(const Library &library, Messages &messages, Preferences &preferences);

    // The page that a start begins with.
    void chooseFirst(bool seedsStarterExample);

    void selectProject(QUuid id);
    void selectCheckpoint(const std::optional<QUuid> &id);
    // Back to the overview of all projects that are not archived.
    void showProjects();
    // The page of a checkpoint that has just been written; the library may have given it another project.
    void show(const Checkpoint &saved);
    // The page of this project as it was left.
    void returnTo(const QUuid &projectID, const std::optional<QUuid> &checkpointID);

    void setLaunchOverview(bool isOn);
    void setShowArchivedProjects(bool areShown);
    void setSearch(const QString &text);

    // The sample project while the library has none.
    QList<Project> filteredProjects() const;
    const Project *selectedProject() const;
    const Checkpoint *selected() const;

    // The project that was shown last, also by an earlier start; null for none.
    QUuid lastOpenedProject() const;
    // The one to be shown first where nobody has opened any yet.
    void offer(const QUuid &projectID);

    // The page leaves what is not in the library any more: right after each publication, when another library has been
    // read, and when a project was deleted.
    void leaveMissingProject();
    void leaveMissingCheckpoint();
    void forgetProject(const QUuid &id);

private:
    void setSelectedProjectID(const std::optional<QUuid> &id);
    void setSelection(const std::optional<QUuid> &id);

    const Library &m_library;
    Messages &m_messages;
    Preferences &m_preferences;
    mutable ProjectSearch m_projectSearch = {}; // It remembers what it was asked last.
    QPropertyNotifier m_mirror;
};

} // namespace ardeno
