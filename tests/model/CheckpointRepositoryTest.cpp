// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/CheckpointRepository.h"

#include "model/Json.h"
#include "support/Failure.h"
#include "tests/Printing.h"
#include "tests/support/Children.h"
#include "tests/support/FailureOf.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sys/mount.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdio>
#include <functional>

using namespace ardeno;

namespace {

struct RepositoryFixture {
    QTemporaryDir home;
    QString root = home.filePath("data/Ardeno");
    CheckpointRepository repository{root};

    QString path(const QString &name = "checkpoints.json") const { return root + '/' + name; }

    QByteArray bytes(const QString &name = "checkpoints.json") const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    }

    void put(const QByteArray &content, const QString &name = "checkpoints.json") const
    {
        QDir().mkpath(root);
        QFile file(path(name));
        REQUIRE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QStringList files() const
    {
        return QDir(root).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QStringList keptCopies() const { return QDir(root).entryList({"checkpoints-unreadable-*.json"}); }

    QString loadFailure() const
    {
        return failureOf([&] { repository.loadLibrary(); });
    }

    QString saveFailure(const WorkspaceLibrary &library) const
    {
        return failureOf([&] { repository.saveLibrary(library); });
    }
};

Checkpoint makeCheckpoint(const QString &title, const QUuid &project)
{
    return {.title = title, .projectID = project, .nextStep = "next", .apps = {{"a", "A"}}, .tabs = {{.title = "t"}}};
}

WorkspaceLibrary makeLibrary(int count)
{
    WorkspaceLibrary library;
    library.projects = {{.name = "Project"}};
    for (int i = 0; i < count; ++i)
        library.checkpoints.append(makeCheckpoint(QString::number(i), library.projects[0].id));
    return library;
}

} // namespace

TEST_CASE_FIXTURE(RepositoryFixture, "the first save makes a private folder and a private file, and nothing else")
{
    CHECK(repository.loadLibrary() == WorkspaceLibrary{});
    CHECK_FALSE(QFile::exists(root));

    const WorkspaceLibrary library = makeLibrary(3);
    repository.saveLibrary(library);
    CHECK(files() == QStringList{"checkpoints.json"});
    CHECK(bytes() == json::encode(library));
    CHECK(CheckpointRepository(root).loadLibrary() == library);
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    for (const QString &made : {home.filePath("data"), root, path()})
        CHECK((QFile::permissions(made) & others) == QFile::Permissions());
}

TEST_CASE_FIXTURE(RepositoryFixture, "a bare list of checkpoints is loaded with new projects and kept once")
{
    Checkpoint old{.title = "Thesis", .objective = "A", .decision = " B "};
    const QByteArray legacy = " \r\n\t[" + json::encode(old) + "]";
    put(legacy);

    const WorkspaceLibrary library = repository.loadLibrary();
    CHECK(bytes() == legacy);
    REQUIRE(library.projects.size() == 1);
    CHECK(library.projects[0].name == "Thesis");
    CHECK(library.checkpoints[0].projectID == library.projects[0].id);
    CHECK(library.checkpoints[0].objective == "A\n\n B ");

    repository.saveLibrary(library);
    repository.saveLibrary(library);
    CHECK(bytes("checkpoints-before-projects.json") == legacy);
    CHECK(files().size() == 2);
    CHECK(CheckpointRepository(root).loadLibrary() == library);

    // A second old file does not replace the way back.
    put("[]");
    CHECK(repository.loadLibrary() == WorkspaceLibrary{});
    repository.saveLibrary(library);
    CHECK(bytes("checkpoints-before-projects.json") == legacy);
    CHECK(bytes() == json::encode(library));
}

TEST_CASE_FIXTURE(RepositoryFixture, "a library with decisions to merge is kept once before they are")
{
    WorkspaceLibrary library = makeLibrary(2);
    library.checkpoints[0].decision = " \n ";
    put(json::encode(library));
    repository.saveLibrary(repository.loadLibrary());
    CHECK(files() == QStringList{"checkpoints.json"});

    library.checkpoints[1].decision = "Decided";
    const QByteArray old = json::encode(library);
    put(old);
    const WorkspaceLibrary merged = repository.loadLibrary();
    CHECK(merged.checkpoints[1].objective == "Decided");
    repository.saveLibrary(merged);
    CHECK(bytes("checkpoints-before-context-merge.json") == old);
    put(old);
    CHECK(repository.loadLibrary() == merged);
    put("changed", "checkpoints-before-context-merge.json");
    repository.saveLibrary(merged);
    CHECK(bytes("checkpoints-before-context-merge.json") == "changed");
    CHECK(bytes() == json::encode(merged));
}

TEST_CASE_FIXTURE(RepositoryFixture, "what is saved is what was given, whatever was saved or loaded before")
{
    WorkspaceLibrary library = makeLibrary(5);
    put(json::encode(library).replace("\"next\"", "\"n\\u0065xt\"").replace("{\"id\"", "{ \"unknown\":1, \"id\""));
    library = repository.loadLibrary();
    const auto check = [&] {
        repository.saveLibrary(library);
        CHECK(CheckpointRepository(root).loadLibrary() == library);
        CHECK(bytes() == json::encode(library));
    };
    check();
    library.checkpoints[2].nextStep += "!";
    check();
    library.checkpoints[3].tabs[0].url = "https://example.org";
    library.checkpoints.move(3, 0);
    check();
    library.checkpoints.removeAt(1);
    library.checkpoints.prepend(makeCheckpoint("new", library.projects[0].id));
    check();
    library.checkpoints.append(library.checkpoints[0]); // Twice the same identifier, with other content.
    library.checkpoints.last().title = "copy";
    check();
    library.checkpoints[0].windows = QList<SavedWindow>{};
    check();
    library.checkpoints[0].windows.reset();
    check();
    library.checkpoints.clear();
    check();
}

TEST_CASE_FIXTURE(RepositoryFixture, "what cannot be read is kept beside the new library, each time under a new name")
{
    const QByteArray contents[] = {
        "",
        "  \n",
        json::encode(makeLibrary(2)).chopped(10),
        QByteArray("\x7f"
                   "ELF\0\1\2\3",
                   8),
        R"({"version":2,"projects":{},"checkpoints":[]})",
        R"({"version":2,"projects":[],"checkpoints":)" + QByteArray(2'000'000, '[') + "}",
    };
    QStringList kept;
    for (const QByteArray &content : contents) {
        put(content);
        CHECK(loadFailure().startsWith(u"“checkpoints.json” is damaged. "_qs));
        CHECK(bytes() == content);

        const LibraryWrite written = repository.saveLibrary(makeLibrary(1));
        REQUIRE(written.keptCopy.has_value());
        CHECK(bytes(QFileInfo(*written.keptCopy).fileName()) == content);
        kept.append(QFileInfo(*written.keptCopy).fileName());
        CHECK(repository.loadLibrary().checkpoints.size() == 1);
        CHECK_FALSE(repository.saveLibrary(makeLibrary(2)).keptCopy.has_value());
    }
    kept.sort();
    CHECK(keptCopies() == kept);
}

TEST_CASE_FIXTURE(RepositoryFixture, "a library that somebody else put there is never replaced")
{
    const WorkspaceLibrary mine = makeLibrary(2);
    const QByteArray theirs = json::encode(makeLibrary(5));

    struct Past {
        const char *name;
        std::function<void()> happen;
    };

    const Past pasts[] = {
        {"nothing was read", [] {}},
        {"there was none", [&] { loadFailure(); }},
        {"it was damaged", [&] { put("damaged"), loadFailure(); }},
        {"it was a folder", [&] { QDir(root).mkdir("checkpoints.json"), loadFailure(); }},
        {"another was read", [&] { put(json::encode(mine)), loadFailure(); }},
        {"another was written", [&] { saveFailure(mine); }},
        {"another was removed", [&] { saveFailure(mine), QFile::remove(path()); }},
    };
    QDir().mkpath(root);
    for (const Past &past : pasts) {
        CAPTURE(past.name);
        repository = CheckpointRepository(root);
        past.happen();
        QDir(root).rmdir("checkpoints.json");
        put(theirs);
        CHECK(saveFailure(mine).contains("changed by another program"));
        CHECK(saveFailure(mine).contains("changed by another program"));
        CHECK(bytes() == theirs);
        WorkspaceLibrary taken = repository.loadLibrary();
        taken.checkpoints.append(makeCheckpoint("new", taken.projects[0].id));
        CHECK(saveFailure(taken) == "no failure");
        CHECK(bytes() == json::encode(taken));
        CHECK(QFile::remove(path()));
    }
    CHECK(files().isEmpty());

    // The same library once more, as a tool that restores it writes it, is nothing new; one that is gone can be
    // replaced.
    repository.saveLibrary(mine);
    const QByteArray same = bytes();
    QFile::remove(path());
    put(same);
    CHECK(saveFailure(mine) == "no failure");
    QFile::remove(path());
    CHECK(saveFailure(mine) == "no failure");
    CHECK(bytes() == same);
}

TEST_CASE_FIXTURE(RepositoryFixture, "a library of a newer version is neither read nor replaced")
{
    const QByteArray contents[] = {
        R"({"version":3,"projects":[{"a":1}],"timeline":[]})",
        R"({"checkpoints":[{"id":7}],"projects":[],"version":3})", // A tool has sorted its keys.
        R"({"checkpoints":{"byMonth":[]},"projects":"elsewhere","theme":{"a":[1,{}]},"version":4e0})",
    };
    for (const QByteArray &newer : contents) {
        put(newer);
        CHECK(loadFailure().contains("newer version"));
        CHECK(saveFailure(makeLibrary(1)).contains("newer version"));
        CHECK(bytes() == newer);
        CHECK(files().size() == 1);

        // Also when it comes while the program runs.
        put(json::encode(makeLibrary(1)));
        repository.saveLibrary(repository.loadLibrary());
        put(newer);
        CHECK(saveFailure(makeLibrary(1)).contains("newer version"));
        CHECK(bytes() == newer);
    }
}

TEST_CASE_FIXTURE(RepositoryFixture, "identifiers are written in capitals, also those of records that did not change")
{
    const WorkspaceLibrary library = makeLibrary(3);
    const QByteArray capitals = json::encode(library);
    QByteArray small = capitals;
    for (const Checkpoint &checkpoint : library.checkpoints.first(2))
        small.replace(uuidText(checkpoint.id).toUtf8(), uuidText(checkpoint.id).toLower().toUtf8());
    small.replace(uuidText(library.projects[0].id).toUtf8(), uuidText(library.projects[0].id).toLower().toUtf8());
    REQUIRE(small != capitals);
    put(small);
    repository.saveLibrary(repository.loadLibrary());
    CHECK(bytes() == capitals);
}

TEST_CASE_FIXTURE(RepositoryFixture, "a folder that others may write to is told of")
{
    CHECK(repository.warnings().isEmpty());
    repository.saveLibrary({});
    for (const auto &[mode, isOpen] :
         {std::pair(0700, false), {0755, false}, {0770, true}, {0707, true}, {01777, true}}) {
        CAPTURE(mode);
        ::chmod(QFile::encodeName(root).constData(), static_cast<mode_t>(mode));
        CHECK(repository.warnings().size() == (isOpen ? 1 : 0));
    }
}

TEST_CASE_FIXTURE(RepositoryFixture, "a checkpoint has a media folder of its own")
{
    const QUuid id("{abcdef01-2345-6789-abcd-ef0123456789}");
    const QString folder = repository.directory(id);
    CHECK(folder == path("ABCDEF01-2345-6789-ABCD-EF0123456789"));
    CHECK(repository.directory(id) == folder);
    CHECK(MediaFile::importedImage() != MediaFile::importedImage());

    QDir().rmdir(folder);
    put("in the way", uuidText(id));
    CHECK(failureOf([&] { repository.directory(id); }).endsWith(": Not a directory."));
}

TEST_CASE_FIXTURE(RepositoryFixture, "a library too large to be one is not read, and is kept without its holes")
{
    put("");
    constexpr qint64 size = qint64{2} << 30;
    REQUIRE(QFile::resize(path(), size));
    CHECK(loadFailure().contains("larger than 1 GiB"));
    CHECK(saveFailure(makeLibrary(1)) == "no failure");
    REQUIRE(keptCopies().size() == 1);
    struct stat status;
    REQUIRE(::stat(QFile::encodeName(path(keptCopies()[0])).constData(), &status) == 0);
    CHECK(status.st_size == size);
    CHECK(status.st_blocks < 1000);
}

TEST_CASE_FIXTURE(RepositoryFixture, "what stands in the place of the library and cannot be copied is not replaced")
{
    struct Obstacle {
        const char *name;
        std::function<void()> make;
        QString message;
    };

    const QByteArray library = QFile::encodeName(path());
    const Obstacle obstacles[] = {
        {"folder", [&] { QDir(root).mkdir("checkpoints.json"); }, u"“checkpoints.json” is not a file."_qs},
        {"pipe", [&] { ::mkfifo(library.constData(), 0600); }, u"“checkpoints.json” is not a file."_qs},
        {"circle", [&] { QFile::link("checkpoints.json", path()); },
         u"“checkpoints.json”: Too many levels of symbolic links."_qs},
        {"dangling", [&] { QFile::link("gone/library.json", path()); },
         u"“checkpoints.json” is a link to a file that is not there."_qs},
    };
    QDir().mkpath(root);
    for (const Obstacle &obstacle : obstacles) {
        CAPTURE(obstacle.name);
        obstacle.make();
        CHECK(loadFailure() == obstacle.message);
        CHECK(saveFailure(makeLibrary(1)) != "no failure");
        CHECK(files() == QStringList{"checkpoints.json"});
        CHECK(std::remove(library.constData()) == 0);
    }
}

TEST_CASE_FIXTURE(RepositoryFixture, "a library behind a link is loaded and saved there")
{
    const QString real = home.filePath("real.json");
    put(json::encode(makeLibrary(2)));
    REQUIRE(QFile::rename(path(), real));
    REQUIRE(QFile::link(real, path()));
    WorkspaceLibrary library = repository.loadLibrary();
    CHECK(library.checkpoints.size() == 2);
    library.checkpoints.removeLast();
    repository.saveLibrary(library);
    CHECK(QFileInfo(path()).isSymLink());
    CHECK(CheckpointRepository(root).loadLibrary() == library);
    CHECK(bytes() == json::encode(library));

    // What is no library belongs to somebody else.
    put("A thesis.");
    CHECK(failureOf([&] { repository.saveLibrary(library); }).contains("has been left as it is"));
    CHECK(bytes() == "A thesis.");
    CHECK(keptCopies().isEmpty());
}

TEST_CASE_FIXTURE(RepositoryFixture, "on a full disk nothing is lost, neither the library nor what could not be read")
{
    QDir().mkpath(root);
    const QByteArray place = QFile::encodeName(root);
    if (::mount("none", place.constData(), "tmpfs", 0, "size=256k") != 0) {
        MESSAGE("A full disk was not tested: mounting one needs more rights than this user has.");
        return;
    }
    const WorkspaceLibrary library = makeLibrary(3);
    repository.saveLibrary(library);
    CHECK(saveFailure(makeLibrary(3000)) == "No space left on device.");
    CHECK(CheckpointRepository(root).loadLibrary() == library);
    CHECK(files() == QStringList{"checkpoints.json"});
    CHECK(saveFailure(makeLibrary(4)) == "no failure");

    const QByteArray unreadable(200'000, '!');
    put(unreadable);
    CHECK(saveFailure(library).contains("has not been replaced: No space left on device."));
    CHECK(bytes() == unreadable);
    CHECK(files() == QStringList{"checkpoints.json"});

    // Where nothing can be written, what is there can still be read.
    put(json::encode(library));
    CHECK(::mount("none", place.constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) == 0);
    CHECK(repository.loadLibrary() == library);
    CHECK(saveFailure(library) == "Read-only file system.");
    CHECK(failureOf([&] { repository.directory(QUuid::createUuid()); }).endsWith(": Read-only file system."));
    ::umount(place.constData());
}

TEST_CASE_FIXTURE(RepositoryFixture, "a save that is killed leaves the old or the new library")
{
    const WorkspaceLibrary start = makeLibrary(400);
    repository.saveLibrary(start);
    for (int round = 0; round < 15; ++round) {
        Child child([&](const Child::Signal &ready) {
            WorkspaceLibrary library = repository.loadLibrary();
            for (int i = 0;; ++i) {
                for (int k = 0; k < 400; k += 7)
                    library.checkpoints[k].title = QString::number(i);
                repository.saveLibrary(library);
                if (i == 0)
                    ready();
            }
        });
        child.end(SIGKILL);
        const WorkspaceLibrary found = CheckpointRepository(root).loadLibrary();
        REQUIRE(found.checkpoints.size() == 400);
        for (int k = 0; k < 400; k += 7)
            CHECK(found.checkpoints[k].title == found.checkpoints[0].title);
    }
}
