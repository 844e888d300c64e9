// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/ApplicationIdentity.h"

#include "platform/linux/running/ProcessFacts.h"
#include "tests/platform/linux/InstalledApplications.h"

#include <QProcess>

using namespace ardeno;

namespace {

struct Identities : InstalledApplications {
    QString idOfWindow(const WindowHints &hints)
    {
        return idOf(ApplicationIdentification(entries).ofWindow(hints).entry);
    }

    QString excludedBy(const QString &rule, const WindowHints &hints)
    {
        entries.setExcluded({rule});
        ApplicationIdentification identification(entries);
        return identification.excludedBy(identification.ofWindow(hints)).value_or("none");
    }
};

} // namespace

TEST_CASE_FIXTURE(Identities, "real applications are known however they write their names")
{
    install("org.keepassxc.KeePassXC", "Name=KeePassXC\nExec=true\nStartupWMClass=keepassxc");
    install("jedit", "Name=jEdit\nExec=true\nStartupWMClass=jedit");
    install("org.kde.gwenview", "Name=Gwenview\nExec=true");
    install("org.kde.gwenview_importer", "Name=Importer\nExec=true\nNoDisplay=true\nStartupWMClass=gwenview");

    struct Case {
        const char *id;
        WindowHints hints;
    };

    for (const Case &tried : {
             Case{"org.keepassxc.KeePassXC", {.instance = "keepassxc", .windowClass = "KeePassXC"}},
             Case{"jedit", {.instance = "sun-awt-X11-XFramePeer", .windowClass = "org-gjt-sp-jedit-jEdit"}},
             Case{"org.kde.gwenview", {.instance = "gwenview", .windowClass = "gwenview"}},
         }) {
        CAPTURE(tried.id);
        CHECK(idOfWindow(tried.hints) == tried.id);
        CHECK(excludedBy(tried.id, tried.hints) == tried.id);
        CHECK(excludedBy("org.test.Other", tried.hints) == "none");
    }
}

TEST_CASE_FIXTURE(Identities, "what becomes of an application's desktop file brings none of its windows back")
{
    const WindowHints hints{.instance = "window", .windowClass = "Canary"};
    const QByteArray file = "Name=Secret\nExec=/bin/true\nStartupWMClass=canary";
    install("org.test.Secret", file);
    install("org.test.Open", "Name=Open\nExec=true\nStartupWMClass=open");
    REQUIRE(idOfWindow(hints) == "org.test.Secret");
    const QString rule = "org.test.Secret";
    CHECK(excludedBy(rule, hints) == rule);

    SUBCASE("doubled")
    {
        install("copy", file);
    }
    SUBCASE("doubled by the user")
    {
        install("copy", file, "user");
    }
    SUBCASE("hidden")
    {
        install("org.test.Secret", file + "\nNoDisplay=true");
    }
    SUBCASE("another one of the name")
    {
        install("org.test.Secret", "Name=Other\nExec=true", "user");
    }
    SUBCASE("removed by the user")
    {
        install("org.test.Secret", "Hidden=true", "user");
    }
    SUBCASE("removed")
    {
        QFile::remove(folder.filePath("system/org.test.Secret.desktop"));
    }

    CHECK(excludedBy(rule, hints) == rule);
    CHECK(excludedBy(rule, {.instance = "open", .windowClass = "Open"}) == "none");
}

TEST_CASE_FIXTURE(Identities, "windows of an application that is no longer installed are not taken for another one's")
{
    const WindowHints hints{.instance = "window", .windowClass = "Canary"};
    const QString rule = "org.test.Secret";
    install("org.test.Secret", "Name=Secret\nExec=/bin/true\nStartupWMClass=canary");
    install("org.test.Open", "Name=Open\nExec=true\nStartupWMClass=open");
    const ApplicationTraces known = entries.traces(rule);
    SUBCASE("removed")
    {
        QFile::remove(folder.filePath("system/org.test.Secret.desktop"));
    }
    SUBCASE("an empty one in its place")
    {
        install("org.test.Secret", "Hidden=true");
    }
    install("copy", "Name=Copy\nExec=/bin/true\nStartupWMClass=canary");
    REQUIRE(idOfWindow(hints) == "copy");
    REQUIRE(excludedBy(rule, hints) == "none");
    entries.remembered()->set({{rule, known}});
    CHECK(excludedBy(rule, hints) == rule);
    CHECK(excludedBy(rule, {.instance = "open", .windowClass = "Open"}) == "none");
    CHECK(excludedBy(rule, {.instance = "unknown", .windowClass = "Unknown"}) == "none"); // No longer anybody's.
}

TEST_CASE_FIXTURE(Identities,
                  "a program's name decides where a window says too little, and never against its own words")
{
    install("org.test.Secret", "Name=Secret\nExec=" + folder.filePath("canary").toUtf8());
    install("org.test.Open", "Name=Open\nExec=true\nStartupWMClass=open");
    const QString program = folder.filePath("canary");
    REQUIRE(QFile::copy("/bin/sleep", program));
    QProcess canary;
    canary.start(program, {"100"});
    REQUIRE(canary.waitForStarted());
    const auto process = qint32(canary.processId());
    const WindowHints unknown{.windowClass = "Unknown", .processID = process};

    CHECK(idOfWindow(unknown) == "org.test.Secret");
    // A copy of a program may call its windows as the other one does.
    CHECK(idOfWindow({.windowClass = "Open", .processID = process}) == "org.test.Open");
    CHECK(excludedBy("org.test.Secret", {.windowClass = "Open", .processID = process}) == "org.test.Secret");
    QFile::remove(program); // As an upgrade does.
    CHECK(ProcessFacts(process).program() == program);
    CHECK(ProcessFacts::isAnyRunning({"canary"}));
    QFile::remove(folder.filePath("system/org.test.Secret.desktop"));
    install("org.test.Canary", "Name=Secret\nExec=/no/such/program");
    CHECK(idOfWindow(unknown) == "none");
    CHECK(excludedBy("org.test.Canary", unknown) == "org.test.Canary");
    CHECK(excludedBy("org.test.Canary", {.windowClass = "Open", .processID = process}) == "none");
    CHECK(excludedBy("window-class/unknown", unknown) == "window-class/unknown");
    CHECK(excludedBy("org.test.NeverThere", unknown) == "org.test.NeverThere");
    canary.kill();
    canary.waitForFinished();
    CHECK_FALSE(ProcessFacts::isAnyRunning({"canary"}));
}
