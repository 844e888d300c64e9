// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Output.h"
#include "app/StoreAccess.h"
#include "support/Text.h"

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

ListedProject listed(const AppStore &store, const Project &project)
{
    ListedProject result{
        .id = project.id,
        .name = project.name,
        .blocked = project.blockedReason.has_value(),
        .archived = project.archivedAt.has_value(),
    };
    for (const Checkpoint &checkpoint : store.checkpointsFor(project.id))
        result.checkpoints.append(
            {checkpoint.id, checkpoint.displayName(), checkpoint.title, checkpoint.createdAt.toIsoText()});
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

void printText(const Listing &listing)
{
    for (const ListedProject &project : listing.projects) {
        print(oneLine(project.name) + marks(project) + '\n');
        for (const ListedCheckpoint &checkpoint : project.checkpoints)
            print(u"  %1  %2  %3\n"_qs.arg(uuidText(checkpoint.id).first(8), checkpoint.createdAt,
                                           oneLine(checkpoint.displayName)));
    }
}

ExitStatus list(const QCommandLineParser &parsed)
{
    Desktop desktop = libraryOnlyDesktop();
    LockedStore locked(desktop, LockedStore::Purpose::Read);
    if (!locked.store().isLibraryRead())
        return ExitStatus::Failed;
    Listing listing;
    const QString wanted = parsed.value("project").trimmed();
    for (const Project &project : locked.store().projects()) {
        if (!parsed.isSet("project") || Text::equalNames(project.name, wanted))
            listing.projects.append(listed(locked.store(), project));
    }
    if (parsed.isSet("project") && listing.projects.isEmpty()) {
        printError(u"There is no project “%1”."_qs.arg(wanted));
        return ExitStatus::Failed;
    }
    if (parsed.isSet("json"))
        printJson(listing);
    else
        printText(listing);
    return ExitStatus::Done;
}

} // namespace

ExitStatus runList(const QCommandLineParser &parsed)
{
    try {
        return list(parsed);
    } catch (const Failure &failure) {
        return report(failure);
    }
}

} // namespace ardeno
