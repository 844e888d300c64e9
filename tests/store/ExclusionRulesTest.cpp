// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BlockOn.h"
#include "tests/store/StoreFixture.h"
#include "json/Json.h"

#include <functional>

using namespace ardeno;

namespace {

struct ExclusionsFixture : StoreFixture {
    const QString folder = home.filePath("settings");
    const QString file = folder + "/exclusions.json";
    const CaptureExclusions rules{{{"org.a", "A"}}, {"mail.example.com"}};

    QStringList keptCopies() const
    {
        return QDir(folder).entryList({"exclusions-unreadable-*"}, QDir::AllEntries | QDir::System);
    }

    // As on a new machine, but for what these settings hold.
    void startAgainWith(const QString &name, const QByteArray &bytes)
    {
        opened.reset();
        QDir(folder).removeRecursively();
        QDir(root()).removeRecursively();
        writeFile(folder + '/' + name, bytes);
    }

    // Whether anything is captured, in any way.
    bool captures()
    {
        const QList<Project> projects = store().library.projects();
        const QUuid owner = projects.isEmpty() ? *store().projects.createProject("Thesis") : projects.first().id;
        const auto before = store().library.checkpoints().size();
        const Outcome saved = blockOn(store().capture.saveMoment({.projectID = owner}));
        CHECK(saved.isDone == blockOn(store().capture.startSession({.projectID = owner})).isDone);
        if (saved)
            blockOn(store().sessions.stop());
        else
            CHECK(saved.captureIssue.value_or("").contains("ardeno exclusions --start-over"));
        CHECK(store().library.checkpoints().size() == before + (saved ? 2 : 0));
        return saved.isDone;
    }
};

} // namespace

TEST_CASE_FIXTURE(ExclusionsFixture, "exclusions last, and each change is made to what stands on disk")
{
    CHECK(store().rules.excludeApp({"org.a", "A"}));
    CHECK(store().rules.excludeDomain("HTTPS://Mail.Example.com/inbox"));
    CHECK_FALSE(store().rules.excludeDomain("not a domain"));
    CHECK(reopen().rules.exclusions() == rules);
    writeFile(file, R"({"apps":[],"domains":["mail.example.com","theirs.example"]})");
    CHECK(store().rules.allowDomain("mail.example.com"));
    CHECK(reopen().rules.exclusions() == CaptureExclusions{.domains = {"theirs.example"}});
}

TEST_CASE_FIXTURE(ExclusionsFixture, "the desktop is told whom to leave out, and the user whose windows are not found")
{
    CHECK(store().rules.excludeApp({"org.a", "A"}).remarks.isEmpty());
    reopen();
    CHECK(memory.excludedAppIDs == QSet<QString>{"org.a"});
    memory.programsRunning = {"org.a"};
    const Outcome unseen = store().rules.excludeApp({"org.a", "A"});
    REQUIRE(unseen.remarks.size() == 1);
    CHECK(unseen.remarks.first().sentence.startsWith("A is running, but none of the windows"));
    memory.running = {{"org.a", "A", true}};
    CHECK(store().rules.excludeApp({"org.a", "A"}).remarks.isEmpty());
    CHECK(store().rules.allowApp("org.a"));
    CHECK(memory.excludedAppIDs.isEmpty());
}

TEST_CASE_FIXTURE(ExclusionsFixture, "what an excluded application was known by outlives its desktop file")
{
    const ApplicationMarks first{.id = "org.a", .names = {"vault"}};
    const ApplicationMarks later{.id = "org.a", .names = {"safe", "vault"}};
    writeFile(file, json::encode(rules)); // Of an older version.
    CHECK(store().rules.exclusions() == rules);
    memory.marks = {{"org.a", first}};
    CHECK(captures());
    CHECK(memory.marksTold == QList{first});
    memory.marks = {{"org.a", later}, {"org.b", {.id = "org.b"}}};
    CHECK(store().rules.excludeDomain("new.test"));
    CHECK(memory.marksTold == QList{later});
    CHECK(store().rules.excludeApp({"org.b", "B"}));
    memory.marks.clear();
    CHECK(reopen().rules.exclusions().apps.size() == 2);
    CHECK(memory.marksTold.value(0) == later);
    CHECK(captures());
    CHECK(store().rules.allowApp("org.b"));
    CHECK(memory.marksTold == QList{later});
    CHECK(store().rules.allowApp("org.a"));
    CHECK(memory.marksTold.isEmpty());
}

TEST_CASE_FIXTURE(ExclusionsFixture, "nothing is captured while exclusions cannot be read, until the user starts over")
{
    const std::function<void()> damages[] = {
        [&] { writeFile(file, "{\"apps\":"); },
        [&] { writeFile(file, {}); },
        [&] { writeFile(file, QByteArray(80, '\0')); },
        [&] { writeFile(file, R"({"apps":[],"later":1})"); },
        [&] { REQUIRE(QDir().mkpath(file + "/in-the-way")); },
        [&] { REQUIRE(QFile::link(file, file)); },
        [&] { REQUIRE(QFile::link(home.filePath("unmounted/exclusions.json"), file)); },
    };
    for (const auto &damage : damages) {
        startAgainWith("exclusions.json", json::encode(rules));
        CHECK(store().rules.exclusions() == rules);
        QFile::remove(file);
        damage();
        CHECK_FALSE(captures()); // It is looked at again before each capture.
        reopen();
        CHECK(store().messages.error() == store().rules.exclusionsIssue());
        CHECK_FALSE(captures());
        CHECK_FALSE(store().rules.excludeApp({"org.b", "B"}));
        CHECK_FALSE(store().rules.allowApp("org.a"));
        CHECK(keptCopies().isEmpty());

        const Outcome over = store().rules.startExclusionsOver();
        CHECK(over.isDone);
        CHECK(keptCopies().size() == 1);
        CHECK(over.remarks.value(0).file == folder + '/' + keptCopies().value(0));
        CHECK_FALSE(store().messages.error().has_value());
        CHECK(captures());
        CHECK_FALSE(store().rules.startExclusionsOver());
    }
}

TEST_CASE_FIXTURE(ExclusionsFixture, "exclusions that stood among older settings are taken over, or known to be lost")
{
    const QByteArray older = R"ini([General]
captureExclusions="@ByteArray({\"apps\":[{\"id\":\"org.a\",\"name\":\"A\"}],\"domains\":[\"mail.example.com\"]})"
includeBrowser=true
)ini";
    startAgainWith("settings.ini", older);
    CHECK(store().rules.exclusions() == rules);
    CHECK(QFile::exists(file));
    CHECK(reopen().rules.exclusions() == rules);
    CHECK(store().drafts.includeBrowser());
    CHECK_FALSE(preferences().contains("captureExclusions"));
    // From now on, settings that are lost take no exclusion along.
    opened.reset();
    writeFile(folder + "/settings.json", "damaged");
    CHECK(reopen().rules.exclusions() == rules);
    CHECK(captures());

    for (const QByteArray &damaged : {QByteArray(), QByteArray(older.size(), '\0'), older.first(60)}) {
        startAgainWith("settings.ini", damaged);
        CHECK_FALSE(captures());
        reopen();
        CHECK_FALSE(captures());
        CHECK(store().rules.startExclusionsOver());
        CHECK(captures());
    }
}

TEST_CASE_FIXTURE(ExclusionsFixture,
                  "a change that cannot be written is neither in force nor stored, and a later one is")
{
    REQUIRE(store().rules.excludeApp({"org.a", "A"}));
    REQUIRE(QFile::rename(folder, folder + "-away"));
    writeFile(folder, "no folder");
    CHECK_FALSE(store().rules.excludeDomain("mail.example.com"));
    CHECK_FALSE(store().rules.allowApp("org.a"));
    CHECK(store().rules.exclusions() == CaptureExclusions{{{"org.a", "A"}}, {}});
    REQUIRE(QFile::remove(folder));
    REQUIRE(QFile::rename(folder + "-away", folder));
    CHECK(store().rules.excludeDomain("mail.example.com"));
    CHECK(reopen().rules.exclusions() == rules);
}
