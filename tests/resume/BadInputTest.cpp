// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/WorkspaceRecords.h"
#include "tests/resume/ResumeFixture.h"
#include "json/Json.h"

#include <csignal>
#include <unistd.h>

using namespace ardeno;
using namespace ardeno::desktop_test;

namespace {

// A library with one checkpoint that this machine never saw.
struct BadInputFixture : ResumeFixture {
    Checkpoint checkpoint;

    BadInputFixture() { checkpoint.windows = QList<SavedWindow>(); }

    SavedWindow &addWindow(const QString &app, const QString &title)
    {
        checkpoint.windows->append({.appID = app, .appName = app, .title = title, .frame = {50, 60, 500, 400}});
        return checkpoint.windows->last();
    }

    ProgramResult resume(const QStringList &options = {}) const
    {
        WorkspaceLibrary library{.checkpoints = {checkpoint}};
        library.assignMissingProjects();
        write("data/Ardeno/checkpoints.json", json::encode(library));
        return run(QStringList{"resume", "--latest", "--json"} + options);
    }
};

} // namespace

TEST_CASE_FIXTURE(BadInputFixture, "applications that end at once, show nothing or are missing are told apart")
{
    install("broken", "Name=Broken\nExec=sh -c \"exit 3\"");
    install("silent", "Name=Silent\nExec=sleep 300");
    install("missing", "Name=Missing\nExec=/nonexistent/program");
    checkpoint.apps = {{"broken", "Broken"}, {"silent", "Silent"}, {"missing", "Missing"}, {"foreign", "Foreign"}};
    addWindow("silent", "Window");

    const ProgramResult result = resume();

    CAPTURE(result.out);
    CHECK(result.status == 1);
    CHECK(result.json().value("plan").toObject().value("unavailableApps") == QJsonArray{"missing", "foreign"});
    CHECK(outcome(result).value("openedApps") == 1);
    CHECK(outcome(result).value("unavailable") == 2);
    CHECK(strings(outcome(result).value("failures")) == QStringList{"Broken (it ended with an error)"});
    const QJsonObject skipped = outcome(result).value("windowsSkipped").toArray().at(0).toObject();
    CHECK(skipped == QJsonObject{{"appID", "silent"}, {"title", "Window"}, {"reason", "no such window"}});
    CHECK(result.error.contains("Could not open: Broken (it ended with an error)"));
}

TEST_CASE_FIXTURE(BadInputFixture, "what is started inherits nothing, survives the command and gets each path as it is")
{
    const QString strange = write("it's \"a\"\n$(touch x) 100% ;.txt", "text");
    const QString report = home.filePath("report");
    const QString script = write("script.sh", "{ ls -l /proc/self/fd; echo \"arguments $#\"; echo \"path $1\"; echo "
                                              "\"process $$\"; } >'" +
                                                  report.toUtf8() + ".part'\nmv '" + report.toUtf8() + ".part' '" +
                                                  report.toUtf8() + "'\nexec sleep 300\n");
    install("observer", "Name=Observer\nExec=sh " + script + " %F");
    checkpoint.apps = {{"observer", "Observer"}};
    addWindow("observer", "strange").documentURL = home.path() + "/data/../" + QFileInfo(strange).fileName();
    addWindow("observer", "gone").documentURL = home.filePath("gone.txt");
    addWindow("observer", "relative").documentURL = "--help";
    addWindow("observer", "device").documentURL = "/dev/tty";

    const ProgramResult result = resume();

    CAPTURE(result.out);
    CHECK(result.status == 1);
    CHECK(outcome(result).value("documents") == 1);
    CHECK(strings(outcome(result).value("failures")) ==
          QStringList{"gone.txt (it no longer exists)", "--help (it no longer exists)", "tty (it no longer exists)"});
    REQUIRE(eventually([&] { return QFile::exists(report); }));
    const QString text = fileBytes(report);
    CAPTURE(text);
    CHECK(text.contains("arguments 1\n"));
    CHECK(text.contains(QFileInfo(strange).fileName() + '\n'));
    CHECK_FALSE(text.contains("Ardeno"));
    CHECK_FALSE(text.contains("socket:"));
    CHECK_FALSE(text.contains("pipe:"));
    const auto process = static_cast<pid_t>(text.section("process ", 1).trimmed().toInt());
    REQUIRE(process > 1);
    CHECK(::kill(process, 0) == 0);
    CHECK(::getsid(process) == process);
    ::kill(process, SIGTERM);
}

TEST_CASE_FIXTURE(BadInputFixture, "a checkpoint of another machine, with hostile addresses, opens only what is safe")
{
    const QString log = home.filePath("addresses");
    const QString script = write("web.sh", "printf '%s\\n' \"$@\" >>'" + log.toUtf8() + "'\n");
    install("web", "Name=Web\nExec=sh " + script + " %u\nMimeType=x-scheme-handler/https;");
    QDir().mkpath(home.filePath("config"));
    write("config/mimeapps.list", "[Default Applications]\nx-scheme-handler/https=web.desktop\n");
    checkpoint.apps = {{"com.apple.finder", "Finder"}};
    for (const char *url : {"https://a.example/;touch%20x", "https://a.example/%7e$(id)", "--version",
                            "file:///etc/passwd", "javascript:alert(1)", "https://a.example/;touch%20x"}) {
        SavedTab tab{.title = url, .url = url, .browserID = "com.apple.Safari", .browserWindowID = "1"};
        checkpoint.tabs.append(tab);
    }
    addWindow("com.apple.finder", "Users").locationURL = "/Users/somebody";
    checkpoint.windows->last().displayID = 4711;

    const ProgramResult dry = resume({"--dry-run"});
    CHECK(dry.status == 0);
    CHECK_FALSE(dry.json().contains("outcome"));
    CHECK(dry.json().value("plan").toObject().value("tabsToOpen").toArray().size() == 2);
    CHECK(dry.json().value("plan").toObject().value("duplicateTabs").toArray().size() == 1);
    CHECK(dry.json().value("plan").toObject().value("unavailableTabs").toArray().size() == 3);
    CHECK_FALSE(QFile::exists(log));

    const ProgramResult result = resume();
    CAPTURE(result.out);
    CAPTURE(result.error);
    CHECK(result.status == 0);
    CHECK(outcome(result).value("openedTabs") == 2);
    CHECK(outcome(result).value("unavailable") == 4);
    CHECK(result.json().value("notice") ==
          u"Workspace restored · 2 opened · 0 already active · 4 unavailable · 0 window positions restored"_qs);
    REQUIRE(eventually([&] { return QFile::exists(log); }));
    CHECK(fileBytes(log) == "https://a.example/;touch%20x\nhttps://a.example/%7e$(id)\n");
}

TEST_CASE_FIXTURE(BadInputFixture, "a saved program or desktop file is shown by an application, and never run")
{
    const QString mark = home.filePath("ran");
    const QString log = home.filePath("shown");
    const QString program = write("tool.sh", "#!/bin/sh\ntouch '" + mark.toUtf8() + "'\n");
    const QString entry =
        write("evil.desktop", "[Desktop Entry]\nType=Application\nName=Evil\nExec=touch '" + mark.toUtf8() + "'\n");
    for (const QString &file : {program, entry})
        REQUIRE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const QString viewer = write("viewer.sh", "printf '%s\\n' \"$@\" >>'" + log.toUtf8() + "'\nexec sleep 20\n");
    install("viewer", "Name=Viewer\nExec=sh " + viewer + " %F");
    checkpoint.apps = {{"viewer", "Viewer"}, {"gone", "Gone"}, {entry, "Evil"}, {"../evil", "Evil"}};
    for (const char *const app : {"viewer", "gone"}) {
        for (const QString &file : {program, entry})
            addWindow(app, file).documentURL = file;
    }
    const ProgramResult result = resume();
    CAPTURE(result.out);
    CHECK(outcome(result).value("unavailable") == 3);
    REQUIRE(eventually([&] { return QFile::exists(log); }));
    CHECK(fileBytes(log) == (program + '\n' + entry + '\n').toUtf8());
    // Whoever would run them has come to its end.
    CHECK(eventually([&] { return outputOf("pgrep", {"-f", "tool.sh|evil.desktop"}).isEmpty(); }));
    CHECK_FALSE(QFile::exists(mark));
}
