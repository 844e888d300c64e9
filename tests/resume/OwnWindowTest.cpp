// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/WorkspaceRecords.h"
#include "tests/resume/ResumeFixture.h"
#include "json/Json.h"

using namespace ardeno;
using namespace ardeno::desktop_test;

namespace {

// Applications that write down how they were started.
struct OwnWindowFixture : ResumeFixture {
    QString log = home.filePath("log");

    // With `action` behind the command of its desktop file.
    QStringList startsOf(const QString &id, const QString &action) const
    {
        const QString program = write("note", "#!/bin/sh\necho \"$@\" >>" + log.toLocal8Bit() + '\n');
        QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QString actions = action;
        install(id, "Name=Noter\nExec=" + program + " main %F\n" + actions.replace("NOTE", program));
        Checkpoint checkpoint{.apps = {{id, "Noter"}}};
        checkpoint.windows = QList<SavedWindow>();
        for (const char *name : {"first.txt", "second.txt"})
            checkpoint.windows->append({.appID = id,
                                        .appName = "Noter",
                                        .title = name,
                                        .frame = {50, 60, 500, 400},
                                        .documentURL = write(name, "text")});
        WorkspaceLibrary library{.checkpoints = {checkpoint}};
        library.assignMissingProjects();
        write("data/Ardeno/checkpoints.json", json::encode(library));
        CHECK(run({"resume", "--latest", "--json"}).status == 0);
        QFile file(log);
        CHECK(file.open(QIODevice::ReadOnly));
        QStringList lines = QString::fromLocal8Bit(file.readAll()).remove(home.path() + '/').split('\n');
        lines.removeLast();
        return lines;
    }
};

constexpr auto newWindow = "Actions=new-window;\n[Desktop Action new-window]\nName=New\nExec=NOTE ";

} // namespace

TEST_CASE_FIXTURE(OwnWindowFixture,
                  "each document is asked for by itself, in a window of its own where that can be asked for")
{
    const QString id = "noter";
    SUBCASE("nothing is known of the application")
    {
        CHECK(startsOf(id, {}) == QStringList{"main first.txt", "main second.txt"});
    }
    SUBCASE("it has an action for that")
    {
        CHECK(startsOf(id, QString(newWindow) + "new %u\n") == QStringList{"new first.txt", "new second.txt"});
    }
    SUBCASE("its action only opens an empty window")
    {
        CHECK(startsOf(id, QString(newWindow) + "new\n") == QStringList{"main first.txt", "main second.txt"});
    }
    SUBCASE("it is known")
    {
        CHECK(startsOf("geany", {}) == QStringList{"main --new-instance first.txt", "main --new-instance second.txt"});
    }
}
