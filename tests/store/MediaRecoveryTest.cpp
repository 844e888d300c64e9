// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PngWriter.h"
#include "support/BlockOn.h"
#include "tests/store/StoreFixture.h"
#include "json/Json.h"

#include <sys/stat.h>

using namespace ardeno;

namespace {

// A folder of the user's own, and a library whose folder holds what somebody else put there.
struct HostileFixture : StoreFixture {
    QUuid project = *store().projects.createProject("Thesis");
    Checkpoint saved = saveCheckpoint(project, "one", 1);
    QString own = home.filePath("own");
    QByteArray ownVideo = QByteArray("\0\0\0\x0cmdatmine", 12) + "a holiday";

    HostileFixture()
    {
        opened.reset();
        writeFile(own + "/session.json", "{}");
        writeFile(own + "/session.mp4", ownVideo);
        writeFile(own + '/' + uuidText(saved.id) + "/letter", "mine");
        writeFile(own + '/' + uuidText(QUuid::createUuid()) + "/letter", "mine");
    }

    void checkOwn() const
    {
        CHECK(fileBytes(own + "/session.json") == "{}");
        CHECK(fileBytes(own + "/session.mp4") == ownVideo);
        CHECK(QDir(own).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size() == 2);
        CHECK(fileBytes(own + '/' + uuidText(saved.id) + "/letter") == "mine");
    }

    QString freshName(const char *prefix = "") const { return root() + '/' + prefix + uuidText(QUuid::createUuid()); }
};

} // namespace

TEST_CASE_FIXTURE(HostileFixture, "no link in the library's folder is followed at the start")
{
    const QStringList links = {root() + "/.deleting-0", freshName(".deleting-"), freshName(), freshName(".saving-"),
                               root() + "/.saving-" + uuidText(saved.id)};
    for (const QString &link : links)
        REQUIRE(QFile::link(own, link));
    reopen();
    checkOwn();
    for (const QString &link : links)
        CHECK_MESSAGE(QFileInfo(link).isSymLink(), link.toStdString());
    CHECK(store().library.checkpoints().size() == 1);
    CHECK(fileBytes(*saved.screenshot) == "picture of one");
}

TEST_CASE_FIXTURE(HostileFixture, "a session's journal and video are files of its own folder")
{
    const auto isPipe = [](const QString &path) {
        struct stat status = {};
        return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISFIFO(status.st_mode);
    };
    // With a journal, and a video that leads elsewhere or is none.
    QStringList sessions;
    for (int i = 0; i < 4; ++i) {
        sessions << freshName();
        writeFile(sessions[i] + "/session.json", json::encode(Checkpoint{.title = "Session", .projectID = project}));
    }
    QFile::link(own + "/session.mp4", sessions[0] + "/session.mp4");
    REQUIRE(::link(QFile::encodeName(own + "/session.mp4").constData(),
                   QFile::encodeName(sessions[1] + "/session.mp4").constData()) == 0);
    REQUIRE(::mkfifo(QFile::encodeName(sessions[2] + "/session.mp4").constData(), 0600) == 0);
    QDir().mkpath(sessions[3] + "/session.mp4/inside");
    // Without one.
    const QString piped = freshName();
    const QString linked = freshName();
    const QString folder = freshName();
    QDir().mkpath(piped);
    REQUIRE(::mkfifo(QFile::encodeName(piped + "/session.json").constData(), 0600) == 0);
    QDir().mkpath(linked);
    QFile::link(own + "/session.json", linked + "/session.json");
    QDir().mkpath(folder + "/session.json/inside");

    reopen();

    checkOwn();
    CHECK(store().library.checkpoints().size() == 5);
    for (const QString &session : sessions) {
        const Checkpoint *const found = store().library.checkpoint(QUuid(QFileInfo(session).fileName()));
        REQUIRE(found);
        CHECK(found->recording.has_value() == (session == sessions[1]));
    }
    CHECK(isPipe(sessions[2] + "/session.mp4"));
    CHECK(isPipe(piped + "/session.json"));
    CHECK(QFileInfo(linked + "/session.json").isSymLink());
    CHECK(QFileInfo::exists(folder + "/session.json/inside"));
}

TEST_CASE_FIXTURE(HostileFixture, "no link that was put there during a session is followed at its end")
{
    const Outcome session = blockOn(store().capture.startSession({.projectID = project}));
    REQUIRE(session);
    const QString folder = root() + '/' + uuidText(*session);
    const QStringList names = {"session.json", "snapshot.png"};
    writeFile(own + "/snapshot.png", "a holiday");
    SUBCASE("in the place of files")
    {
        for (const QString &name : names) {
            REQUIRE(QFile::remove(folder + '/' + name));
            REQUIRE(QFile::link(own + '/' + name, folder + '/' + name));
        }
        CHECK(blockOn(store().sessions.stop()));
        CHECK(fileBytes(folder + "/snapshot.png").startsWith("\x89PNG"));
        CHECK(QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System) ==
              QStringList{"session.mp4", "snapshot.png"});
    }
    SUBCASE("in the place of the folder")
    {
        REQUIRE(QDir(folder).removeRecursively());
        REQUIRE(QFile::link(own, folder));
        CHECK(blockOn(store().sessions.stop()));
    }
    CHECK(store().library.checkpoint(*session));
    checkOwn();
    CHECK(fileBytes(own + "/snapshot.png") == "a holiday");
}

TEST_CASE_FIXTURE(HostileFixture, "what a killed process left is put where the library says, and unknown things stay")
{
    const QString folder = mediaFolder(saved);
    const Checkpoint arriving = {.title = "Arriving", .projectID = project, .screenshot = QString("?")};
    Checkpoint named = arriving;
    named.screenshot = mediaFolder(named) + "/image-1.png";
    reopen();
    REQUIRE(store().editing.save(named));
    opened.reset();
    writeFile(root() + "/.saving-" + uuidText(named.id) + "/.image-1.png.saving", "arrived");
    writeFile(freshName(".saving-") + "/snapshot.png", "never saved");
    const QString session = freshName(".saving-");
    writeFile(session + "/session.json", json::encode(Checkpoint{.title = "Session", .projectID = project}));
    writeFile(freshName(".deleting-") + '/' + uuidText(QUuid::createUuid()) + "/snapshot.png", "deleted");
    REQUIRE(QFile::rename(*saved.screenshot, folder + "/.snapshot.png.removing"));
    writeFile(folder + "/.other.png.removing", "removed");
    writeFile(folder + "/.image-2.png.saving", "never saved");
    writeFile(folder + "/.snapshot.png.0.writing", "half");
    writeFile(root() + "/.checkpoints.json.1.writing", "half");
    const QStringList unknown = {root() + "/.saving-mine/a", root() + "/.deleting-mine/a",
                                 folder + "/.saving",        folder + "/..removing",
                                 root() + "/notes/a",        freshName() + "/snapshot.png"};
    for (const QString &path : unknown)
        writeFile(path, "mine");

    reopen();

    CHECK(fileBytes(*saved.screenshot) == "picture of one");
    CHECK(fileBytes(*named.screenshot) == "arrived");
    CHECK(store().library.checkpoint(QUuid(session.section(".saving-", -1))));
    for (const QString &path : unknown)
        CHECK_MESSAGE(fileBytes(path) == "mine", path.toStdString());
    const auto names = [](const QString &of) {
        return QDir(of).entryList(QDir::AllEntries | QDir::Hidden).filter(".");
    };
    CHECK(names(folder) == QStringList{".", "..", "..removing", ".saving", "snapshot.png"});
    CHECK(names(root()) == QStringList{".", "..", ".deleting-mine", ".saving-mine", "checkpoints.json"});
}

TEST_CASE_FIXTURE(HostileFixture, "while there is no library, no media are touched")
{
    const QString media = root() + "/.saving-" + uuidText(saved.id) + "/snapshot.png";
    writeFile(media, "saved");
    const QByteArray library = fileBytes(libraryPath());
    for (const char *bytes : {"", "{"}) {
        CAPTURE(QString(bytes));
        REQUIRE(QFile::remove(libraryPath()));
        if (*bytes)
            writeFile(libraryPath(), bytes);
        reopen();
        CHECK(fileBytes(media) == "saved");
        CHECK(fileBytes(*saved.screenshot) == "picture of one");
        writeFile(libraryPath(), library);
    }
}
