// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/LibraryLock.h"

#include "model/CheckpointRepository.h"
#include "model/LibraryFailure.h"
#include "support/Failure.h"
#include "tests/Printing.h"
#include "tests/support/Children.h"
#include "tests/support/FailureOf.h"
#include "tests/support/Files.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <sys/stat.h>

#include <csignal>
#include <cstdio>
#include <functional>
#include <thread>

using namespace ardeno;

namespace {

struct LockFixture {
    QTemporaryDir home;
    QString root = home.filePath("Ardeno");
    LibraryLock::Request writer{.root = root};
    LibraryLock::Request reader{.root = root, .access = LibraryLock::Access::Read};

    // A child that holds the lock and has said so.
    Child holder() const
    {
        return Child([request = writer](const Child::Signal &ready) {
            const auto lock = LibraryLock::tryLock(request);
            if (lock)
                ready();
            ::pause();
        });
    }
};

} // namespace

TEST_CASE_FIXTURE(LockFixture, "one process at a time has the lock, and its end gives it back")
{
    Child child = holder();
    CHECK_FALSE(LibraryLock::tryLock(writer).has_value());
    CHECK_FALSE(LibraryLock::tryLock(reader).has_value());
    const auto found = LibraryLock::holder(root);
    REQUIRE(found.has_value());
    CHECK(found->process == child.id());
    CHECK(found->kind == LibraryLock::Kind::Command);

    child.end(SIGKILL);
    const LibraryLock lock = LibraryLock::waitFor({.root = root, .kind = LibraryLock::Kind::Application}, {});
    CHECK(LibraryLock::holder(root)->kind == LibraryLock::Kind::Application);
    CHECK(LibraryLock::holder(root)->process == ::getpid());
    CHECK((QFile::permissions(root + "/lock") & (QFile::ReadGroup | QFile::ReadOther)) == QFile::Permissions());
}

TEST_CASE_FIXTURE(LockFixture, "a holder that is stopped is named when the time is over")
{
    Child child = holder();
    ::kill(child.id(), SIGSTOP);
    try {
        LibraryLock::waitFor(writer, std::chrono::milliseconds(50));
        FAIL("the lock was given twice");
    } catch (const Failure &failure) {
        CHECK(failure.code() == static_cast<int>(LibraryFailure::InUse));
        CHECK(failure.description() ==
              u"The library is in use by test_model (process %1), which does not answer."_qs.arg(child.id()));
    }
}

TEST_CASE_FIXTURE(LockFixture, "a program that is started meanwhile does not keep the lock")
{
    std::optional<LibraryLock> lock = LibraryLock::tryLock(writer);
    REQUIRE(lock.has_value());
    QProcess program;
    program.start("sleep", {"60"});
    REQUIRE(program.waitForStarted());
    lock.reset();
    CHECK(LibraryLock::tryLock(writer).has_value());
    program.kill();
    program.waitForFinished();
}

TEST_CASE_FIXTURE(LockFixture, "only a writer makes the folder; where there is none, a reader needs no lock")
{
    const auto none = LibraryLock::tryLock(reader);
    REQUIRE(none.has_value());
    CHECK_FALSE(none->isHeld());
    CHECK_FALSE(QFile::exists(root));
    CHECK_FALSE(LibraryLock::holder(root).has_value());

    REQUIRE(LibraryLock::tryLock(writer)->isHeld());
    CHECK(LibraryLock::tryLock(reader)->isHeld());
    CHECK_FALSE(LibraryLock::holder(root).has_value());

    writeFile(home.filePath("file"));
    CHECK_THROWS_AS(LibraryLock::tryLock({.root = home.filePath("file")}), Failure);
    // In the system's own read-only places a reader needs none either, whoever the user is.
    CHECK_FALSE(LibraryLock::tryLock({.root = "/proc/self", .access = LibraryLock::Access::Read})->isHeld());
}

TEST_CASE_FIXTURE(LockFixture, "a lock whose file was taken away is taken again, or another process has it")
{
    std::optional<LibraryLock> lock = LibraryLock::tryLock(writer);
    REQUIRE(lock.has_value());
    QFile::remove(root + "/lock");
    lock->ensure();
    CHECK(LibraryLock::holder(root)->process == ::getpid());
    lock->ensure();

    QFile::rename(root + "/lock", root + "/away");
    Child child = holder();
    CHECK(failureOf([&] { lock->ensure(); }).contains(u"in use by test_model (process %1)"_qs.arg(child.id())));
    CHECK(LibraryLock::holder(root)->process == child.id());

    const CheckpointRepository repository(root);
    repository.setWriteCheck([&] { lock->ensure(); });
    CHECK(failureOf([&] { repository.saveLibrary({}); }).contains("in use by"));
    CHECK(QDir(root).entryList(QDir::Files | QDir::Hidden) == QStringList{"away", "lock"});
}

TEST_CASE_FIXTURE(LockFixture, "what stands in the place of the lock is neither followed nor waited for nor written to")
{
    QDir().mkpath(root);
    const QByteArray path = QFile::encodeName(root + "/lock");
    const QString foreign = home.filePath("foreign");
    writeFile(foreign, "theirs");
    const std::function<bool()> obstacles[] = {
        [&] { return QFile::link(foreign, root + "/lock"); },
        [&] { return QFile::link("nowhere", root + "/lock"); },
        [&] { return ::mkfifo(path.constData(), 0600) == 0; },
        [&] { return ::mkdir(path.constData(), 0700) == 0; },
    };
    for (const auto &make : obstacles) {
        REQUIRE(make());
        for (const LibraryLock::Request &request : {writer, reader})
            CHECK(failureOf([&] { LibraryLock::tryLock(request); }).startsWith(u"“lock” is "_qs));
        CHECK_FALSE(LibraryLock::holder(root).has_value());
        CHECK(std::remove(path.constData()) == 0);
    }
    REQUIRE(::link(QFile::encodeName(foreign).constData(), path.constData()) == 0);
    CHECK(LibraryLock::tryLock(writer).has_value());
    CHECK(fileBytes(foreign) == "theirs");
    CHECK_FALSE(QFile::exists(root + "/nowhere"));
}

TEST_CASE_FIXTURE(LockFixture, "processes that load and save under the lock do not lose each other's changes")
{
    constexpr int children = 4;
    constexpr int savesEach = 15;
    std::vector<Child> workers;
    for (int i = 0; i < children; ++i) {
        workers.emplace_back([request = writer](const Child::Signal &ready) {
            ready();
            const CheckpointRepository repository(request.root);
            for (int save = 0; save < savesEach; ++save) {
                const LibraryLock lock = LibraryLock::waitFor(request, std::chrono::minutes(1));
                WorkspaceLibrary library = repository.loadLibrary();
                library.checkpoints.append(Checkpoint{.title = "T"});
                repository.saveLibrary(library);
            }
        });
    }
    for (Child &worker : workers)
        CHECK(worker.wait() == 0);
    CHECK(CheckpointRepository(root).loadLibrary().checkpoints.size() == children * savesEach);
}
