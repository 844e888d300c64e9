// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Failure.h"
#include "tests/model/RepositoryFixture.h"
#include "tests/support/Children.h"
#include "json/Json.h"

#include <QFileInfo>

#include <sys/mount.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdio>
#include <functional>

using namespace ardeno;

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
