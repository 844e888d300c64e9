// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/WorkspaceRecords.h"
#include "tests/app/Program.h"
#include "json/Json.h"

#include <QDir>
#include <QFile>

using namespace ardeno;

TEST_CASE_FIXTURE(ProgramFixture, "the beginning of an ID must say which checkpoint, and the latest may be a project's")
{
    WorkspaceLibrary library;
    const Project first{.name = "P1"};
    const Project second{.name = "P2"};
    library.projects = {first, second};
    const auto add = [&](const char *id, const Project &project, double at) {
        library.checkpoints.append({.id = QUuid(QString(id) + "000000-0000-4000-8000-000000000000"),
                                    .title = QString("T ") + id,
                                    .projectID = project.id,
                                    .createdAt = Date{at}});
    };
    add("A1", first, 1);
    add("A2", first, 3);
    add("B1", second, 2);
    writeFile(libraryPath(), json::encode(library));

    CHECK(run({"show", "b"}).out.contains("T B1"));
    const ProgramResult ambiguous = run({"show", "A"});
    CHECK(ambiguous.status == 1);
    CHECK(ambiguous.out.isEmpty());
    CHECK(ambiguous.error.contains("A"));
    CHECK(run({"resume", "--latest", "--project", "P1", "--dry-run"}).out.contains("T A2"));
    CHECK(run({"resume", "--latest", "--project", "P2", "--dry-run"}).out.contains("T B1"));
    CHECK(run({"resume", "--latest", "--project", "None", "--dry-run"}).error.contains("There is no project “None”."));
}
