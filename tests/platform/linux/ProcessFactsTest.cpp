// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/running/ProcessFacts.h"

#include "platform/linux/running/ProcessEnd.h"
#include "tests/Printing.h"

#include <doctest/doctest.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>

#include <unistd.h>

#include <chrono>

using namespace ardeno;

TEST_CASE("the control group of a process names the application that it was started for")
{
    struct Case {
        const char *path;
        const char *id;
    };

    const QString slice = "/user.slice/user-1000.slice/user@1000.service/app.slice/";
    for (const Case &tried : {
             Case{"app-gnome-org.gnome.Evince-4711.scope", "org.gnome.Evince"},
             Case{"app-org.kde.dolphin-0a1b2c.scope", "org.kde.dolphin"},
             Case{R"(app-gnome-firefox\x2desr-4711.scope)", "firefox-esr"},
             Case{R"(app-a\x2db\x2dc-1.scope)", "a-b-c"},
             Case{"app-flatpak-org.example.Editor-12.scope", "org.example.Editor"},
             Case{"app-org.kde.kate@f00.service", "org.kde.kate"},
             Case{"app-org.example.Agent@autostart.service", "org.example.Agent"},
             Case{"snap.firefox.firefox-0f1e2d3c-aaaa.scope", "firefox_firefox"},
             Case{"session-2.scope", ""},
             Case{"vte-spawn-1234.scope", ""},
             Case{"app-.scope", ""},
             Case{"", ""},
         }) {
        CAPTURE(tried.path);
        CHECK(ProcessFacts::applicationInControlGroup(slice + tried.path) == tried.id);
    }
}

TEST_CASE("a process's program and arguments are read, those of a process that has ended are empty")
{
    const ProcessFacts own(::getpid());
    CHECK(own.program() == QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath());
    CHECK_FALSE(own.arguments().contains(QCoreApplication::applicationFilePath()));

    const ProcessFacts gone(0x7ffffff0);
    CHECK(gone.program().isEmpty());
    CHECK(gone.arguments().isEmpty());
    CHECK(gone.launchedDesktopFileID().isEmpty());
    CHECK(gone.scopeApplicationID().isEmpty());
}

TEST_CASE("the end of a process is waited for, and not for ever")
{
    using namespace std::chrono_literals;
    QProcess program;
    program.start("sleep", {"1000"});
    REQUIRE(program.waitForStarted());
    const qint64 process = program.processId();
    CHECK_FALSE(ProcessEnd::waitFor(process, 50ms));
    program.terminate();
    CHECK(ProcessEnd::waitFor(process, 20s));
    program.waitForFinished();
    CHECK(ProcessEnd::waitFor(process, 0ms)); // It has gone.
}
