// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/ProjectOrder.h"

#include "support/Text.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace ardeno {

namespace {

const Project *find(const QList<Project> &projects, const QUuid &id)
{
    const auto found = std::find_if(projects.begin(), projects.end(), [&](const Project &p) { return p.id == id; });
    return found == projects.end() ? nullptr : &*found;
}

bool mayMove(const QList<Project> &projects, const QUuid &dragged, const QUuid &target)
{
    const Project *const draggedProject = find(projects, dragged);
    const Project *const targetProject = find(projects, target);
    return dragged != target && draggedProject && targetProject && !draggedProject->isSample &&
           draggedProject->archivedAt.has_value() == targetProject->archivedAt.has_value();
}

} // namespace

std::optional<QUuid> ProjectOrder::named(const QList<Project> &projects, const QString &name)
{
    const auto same = std::find_if(projects.begin(), projects.end(),
                                   [&](const Project &project) { return Text::equalNames(project.name, name); });
    return same == projects.end() ? std::nullopt : std::optional(same->id);
}

QUuid ProjectOrder::adopt(QList<Project> *projects, const Project &project)
{
    if (find(*projects, project.id))
        return project.id;
    if (const std::optional<QUuid> same = named(*projects, project.name))
        return *same;
    projects->append(project);
    return project.id;
}

std::optional<QList<Project>> ProjectOrder::moved(const QList<Project> &projects, const QUuid &dragged,
                                                  const std::optional<QUuid> &target, const QList<QUuid> &visibleIDs)
{
    if (visibleIDs.isEmpty())
        return std::nullopt;
    const QUuid neighbour = target.value_or(visibleIDs.last());
    if (!mayMove(projects, dragged, neighbour) || !visibleIDs.contains(dragged) || !visibleIDs.contains(neighbour))
        return std::nullopt;
    QList<QUuid> order = visibleIDs;
    order.removeAll(dragged);
    order.insert(target ? order.indexOf(*target) : order.size(), dragged);

    QHash<QUuid, Project> byID;
    for (const Project &project : projects)
        byID.insert(project.id, project);
    // Rows of projects that no longer exist have no slot to fill.
    order.removeIf([&](const QUuid &id) { return !byID.contains(id); });
    const QSet<QUuid> moving(order.cbegin(), order.cend());

    QList<Project> result = projects;
    auto next = order.cbegin();
    for (Project &slot : result) {
        if (moving.contains(slot.id))
            slot = byID.value(*next++);
    }
    if (result == projects)
        return std::nullopt;
    return result;
}

QList<Checkpoint> ProjectOrder::newestFirst(const QList<Checkpoint> &checkpoints, const QUuid &projectID)
{
    std::vector<const Checkpoint *> order;
    for (const Checkpoint &checkpoint : checkpoints) {
        if (checkpoint.projectID == projectID)
            order.push_back(&checkpoint);
    }
    sortNewestFirst(&order);
    QList<Checkpoint> own;
    own.reserve(static_cast<qsizetype>(order.size()));
    for (const Checkpoint *const checkpoint : order)
        own.append(*checkpoint);
    return own;
}

void ProjectOrder::sortNewestFirst(std::vector<const Checkpoint *> *checkpoints)
{
    std::stable_sort(checkpoints->begin(), checkpoints->end(),
                     [](const Checkpoint *a, const Checkpoint *b) { return a->createdAt > b->createdAt; });
}

std::optional<QUuid> ProjectOrder::newest(const QList<Checkpoint> &checkpoints, const QUuid &projectID)
{
    const Checkpoint *best = nullptr;
    for (const Checkpoint &checkpoint : checkpoints) {
        if (checkpoint.projectID == projectID && (!best || checkpoint.createdAt > best->createdAt))
            best = &checkpoint;
    }
    return best ? std::optional(best->id) : std::nullopt;
}

std::optional<QUuid> ProjectOrder::neighbour(const QList<Checkpoint> &newestFirst, const QUuid &id)
{
    const auto found = std::find_if(newestFirst.begin(), newestFirst.end(),
                                    [&](const Checkpoint &checkpoint) { return checkpoint.id == id; });
    if (found == newestFirst.end())
        return std::nullopt;
    if (found != newestFirst.begin())
        return std::prev(found)->id;
    const auto older = std::next(found);
    return older == newestFirst.end() ? std::nullopt : std::optional(older->id);
}

} // namespace ardeno
