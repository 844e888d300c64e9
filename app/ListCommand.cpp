// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CommandStore.h"
#include "store/ProjectOrder.h"
#include "support/InWorker.h"
#include "support/Text.h"

#include <QHash>

#include <vector>

namespace ardeno {

namespace {

// What "list --json" prints.
struct ListedCheckpoint {
    QUuid id = {};
    QString displayName = {};
    QString title = {};
    QString createdAt = {};

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &ListedCheckpoint::id},
            Field{"displayName", &ListedCheckpoint::displayName},
            Field{"title", &ListedCheckpoint::title},
            Field{"createdAt", &ListedCheckpoint::createdAt},
        };
    }
};

struct ListedProject {
    QUuid id = {};
    QString name = {};
    bool blocked = false;
    bool archived = false;
    QList<ListedCheckpoint> checkpoints = {};

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &ListedProject::id},
            Field{"name", &ListedProject::name},
            Field{"blocked", &ListedProject::blocked},
            Field{"archived", &ListedProject::archived},
            Field{"checkpoints", &ListedProject::checkpoints},
        };
    }
};

struct Listing {
    QList<ListedProject> projects = {};

    static constexpr auto fields() { return std::tuple{Field{"projects", &Listing::projects}}; }
};

ListedCheckpoint listed(const Checkpoint &checkpoint)
{
    return {checkpoint.id, checkpoint.displayName(), checkpoint.title, checkpoint.createdAt.toIsoText()};
}

ListedProject listed(const Project &project, std::vector<const Checkpoint *> history)
{
    ListedProject result{
        .id = project.id,
        .name = project.name,
        .blocked = project.blockedReason.has_value(),
        .archived = project.archivedAt.has_value(),
    };
    ProjectOrder::sortNewestFirst(&history);
    result.checkpoints.reserve(static_cast<qsizetype>(history.size()));
    for (const Checkpoint *const checkpoint : history)
        result.checkpoints.append(listed(*checkpoint));
    return result;
}

Listing listing(const QList<Project> &projects, const QList<Checkpoint> &checkpoints)
{
    QHash<QUuid, std::vector<const Checkpoint *>> histories;
    for (const Project &project : projects)
        histories.insert(project.id, {});
    for (const Checkpoint &checkpoint : checkpoints) {
        const auto history = histories.find(checkpoint.projectID.value_or(QUuid()));
        if (history != histories.end())
            history->push_back(&checkpoint);
    }
    Listing result;
    for (const Project &project : projects)
        result.projects.append(listed(project, histories.take(project.id)));
    return result;
}

QString marks(const ListedProject &project)
{
    QStringList words;
    if (project.blocked)
        words << "blocked";
    if (project.archived)
        words << "archived";
    return words.isEmpty() ? QString() : " (" + words.join(", ") + ')';
}

QString text(const Listing &listing)
{
    QString text;
    for (const ListedProject &project : listing.projects) {
        text += oneLine(project.name) + marks(project) + '\n';
        for (const ListedCheckpoint &checkpoint : project.checkpoints)
            text += "  " + uuidText(checkpoint.id).first(8) + "  " + checkpoint.createdAt + "  " +
                    oneLine(checkpoint.displayName) + '\n';
    }
    return text;
}

QList<Project> chosenProjects(const QCommandLineParser &parsed, QList<Project> projects)
{
    if (!parsed.isSet("project"))
        return projects;
    const QString wanted = parsed.value("project").trimmed();
    projects.removeIf([&](const Project &project) { return !Text::equalNames(project.name, wanted); });
    if (projects.isEmpty())
        throw Failure("Command", 1, u"There is no project “%1”."_qs.arg(wanted));
    return projects;
}

QCoro::Task<ExitStatus> list(CommandContext &context, const QCommandLineParser &parsed)
{
    Desktop desktop = libraryOnlyDesktop();
    CommandStore access(context, desktop, CommandStore::Purpose::Read);
    if (!access.store().library.isLibraryRead())
        co_return ExitStatus::Failed;
    const QList<Project> projects = chosenProjects(parsed, access.store().library.projects());
    const QList<Checkpoint> checkpoints = access.store().library.checkpoints();
    access.release();
    const bool isJson = parsed.isSet("json");
    // The library may be large, and the application has other things to do.
    const auto answer = [projects, checkpoints, isJson] {
        const Listing found = listing(projects, checkpoints);
        return isJson ? jsonText(found) : text(found).toUtf8();
    };
    context.out.printBytes(co_await inWorker(answer));
    co_return ExitStatus::Done;
}

} // namespace

QCoro::Task<ExitStatus> runList(CommandContext &context, const QCommandLineParser &parsed)
{
    co_return co_await list(context, parsed);
}

} // namespace ardeno
