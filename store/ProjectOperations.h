// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/CaptureDrafts.h"
#include "store/Operations.h"

namespace ardeno {

// A project that went to the archive or came from there.
struct Archiving {
    QUuid projectID = {};
    QString projectName = {};
    std::optional<Date> before = {}; // Since when it was archived.
    bool wasShown = false;           // On the page, with this checkpoint.
    std::optional<QUuid> shown = {};

    bool operator==(const Archiving &) const = default;
};

// Makes, changes and orders projects. The sample project is none of them.
class ProjectOperations final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ProjectOperations)

public:
    template <typename T>
    using Published = PublishedBy<T, ProjectOperations>;

    Published<std::optional<Archiving>> lastArchiving; // Can be undone.

    ProjectOperations(Operations &operations, Library &library, Navigation &navigation, CaptureDrafts &drafts);

    // The id is that of the new project, or of the one that has this name already. A blank name does nothing.
    Outcome createProject(const QString &name, Audience audience = Audience::Window);
    Outcome setProjectBlocker(QUuid id, const std::optional<QString> &reason);
    // A project that is shown goes from the page with its archiving, and with its return the list shows where it is.
    // lastArchiving says what an undo takes back.
    Outcome setProjectArchived(QUuid id, bool archived);
    Outcome undoArchiving();
    void dismissArchiving();
    // A blank name does nothing; one that another project has is refused.
    Outcome renameProject(QUuid id, const QString &name);
    // In front of the target; absent: behind the last that is visible.
    Outcome reorderProjects(QUuid dragged, std::optional<QUuid> target, const QList<QUuid> &visibleIDs);

    // The same as createProject for whoever goes on with it: not concluded, and nothing is selected.
    Outcome makeProject(const QString &name);
    // What is done next is most likely done for it.
    void beginWith(const QUuid &projectID);
    void forgetProject(const QUuid &id);
    // What another library does not have cannot be brought back.
    void forgetMissing();

private:
    Outcome updateProject(QUuid id, const std::function<void(Project &)> &change);
    Outcome archive(QUuid id, const std::optional<Date> &since);

    Operations &m_operations;
    Library &m_library;
    Navigation &m_navigation;
    CaptureDrafts &m_drafts;
};

} // namespace ardeno
