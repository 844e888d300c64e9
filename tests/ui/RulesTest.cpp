// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/DetailBar.h"
#include "ui/main/SidebarProjectDrop.h"
#include "ui/projects/ProjectText.h"

#include "tests/Printing.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>

#include "ui/projects/ProjectListModel.h"

using namespace ardeno;

TEST_CASE("what a resume would open, and how projects stand, is counted")
{
    Checkpoint checkpoint;
    checkpoint.apps = {{"a", "A"}};
    checkpoint.tabs.resize(2);
    CHECK(ProjectText::resumeCaption(checkpoint) == u"1 apps · 2 pages · Choose what to reopen"_qs);
    CHECK(ProjectText::overview({{.name = "a"}, {.name = "b", .blockedReason = ""}, {.name = "c"}}) ==
          u"2 active · 1 blocked"_qs);
}

TEST_CASE("a checkpoint titled exactly like its project is its first one")
{
    CHECK(ProjectText::firstStep({.title = "title"}).isEmpty());
    CHECK(ProjectText::title({.title = "Thesis"}, "Thesis") == "First checkpoint");
    CHECK(ProjectText::title({.title = "thesis"}, "Thesis") == "thesis");
    // In the timeline a next step says more.
    CHECK(ProjectText::timelineTitle({.title = "Thesis", .nextStep = "- Write"}, "Thesis") == "Write");
    CHECK(ProjectText::timelineTitle({.title = "Thesis"}, "Thesis") == "First checkpoint");
    CHECK(ProjectText::timelineTitle({.title = "Other", .nextStep = "Thesis"}, "Thesis") == "Thesis");
}

TEST_CASE("moments of today and yesterday are named, in the user's own days")
{
    const QDateTime noon(QDate(2026, 11, 21), QTime(12, 0), Qt::LocalTime);
    const auto text = [&](const QDateTime &moment) {
        return ProjectText::moment(Date::fromDateTime(moment), Date::fromDateTime(noon));
    };
    CHECK(text(noon.addSecs(-12 * 3600)).startsWith("Today, "));
    CHECK(text(noon.addSecs(-12 * 3600 - 1)).startsWith("Yesterday, "));
    CHECK(text(noon.addDays(-1)).startsWith("Yesterday, "));
    CHECK(text(noon.addDays(-2)).startsWith("Nov 19, 2026"));
    CHECK(text(noon.addDays(1)).startsWith("Nov 22, 2026")); // The clock was set back.
    CHECK(ProjectText::momentInSentence(Date::fromDateTime(noon), Date::fromDateTime(noon)).startsWith("today, "));
}

TEST_CASE("elapsed time counts hours only when there are any")
{
    CHECK(elapsedText(0) == "00:00");
    CHECK(elapsedText(728) == "12:08");
    CHECK(elapsedText(3600) == "1:00:00");
    CHECK(elapsedText(-5) == "00:00");
}

TEST_CASE("a drag reorders once for each row it enters, and never for what is not visible")
{
    const QUuid a = QUuid::createUuid();
    const QUuid b = QUuid::createUuid();
    const QUuid hidden = QUuid::createUuid();
    const QList<QUuid> visible{a, b};
    QList<QUuid> targets;
    SidebarProjectDrop drop([&](const QUuid &, const QUuid &target, const QList<QUuid> &) { targets << target; });

    drop.moveOver(b, visible); // No drag is under way.
    drop.begin(a);
    drop.moveOver(a, visible); // Over itself.
    drop.moveOver(b, visible);
    drop.moveOver(b, visible); // Still the same row.
    drop.moveOver(hidden, visible);
    CHECK(targets == QList{b});
    drop.moveOver(b, visible); // Back again.
    CHECK(targets == QList{b, b});
    drop.moveOver(std::nullopt, visible);
    drop.moveOver(b, {b}); // A search has hidden the dragged one.
    drop.end();
    drop.moveOver(b, visible);
    CHECK(targets == QList{b, b});
}

TEST_CASE("a list takes over any new rows in correct steps")
{
    QRandomGenerator random(20261121);
    QList<ProjectRow> all;
    for (int i = 0; i < 60; ++i)
        all.append({.id = QUuid::createUuid(), .name = QString::number(i)});
    ProjectListModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    int resets = 0;
    QObject::connect(&model, &QAbstractItemModel::modelReset, [&] { ++resets; });
    for (int round = 0; round < 200; ++round) {
        QList<ProjectRow> next = model.rows();
        for (int step = random.bounded(1, 4); step > 0; --step) {
            if (const int kind = random.bounded(4); kind == 0 && !next.isEmpty())
                next.removeAt(random.bounded(next.size()));
            else if (kind == 1 && next.size() > 1)
                next.move(random.bounded(next.size()), random.bounded(next.size()));
            else if (kind == 2 && !next.isEmpty())
                next[random.bounded(next.size())].checkpoints += 1;
            else if (const ProjectRow &row = all.at(random.bounded(all.size()));
                     model.rowOf(row.id) < 0 && std::none_of(next.begin(), next.end(), [&](const ProjectRow &other) {
                         return other.id == row.id;
                     }))
                next.insert(random.bounded(next.size() + 1), row);
        }
        model.setRows(next);
        CHECK(model.rows() == next);
    }
    // A few changes never reset a list: it would lose its place and its drag.
    CHECK(resets == 0);
}
