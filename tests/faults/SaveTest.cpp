// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/LibraryLock.h"
#include "support/BlockOn.h"
#include "tests/faults/Faults.h"
#include "tests/store/StoreFixture.h"
#include "tests/support/Children.h"

#include <sys/mman.h>

#include <cerrno>

using namespace ardeno;
using faults::Plan;

namespace {

// A library of five checkpoints, and what is left of it by a process that saves a sixth.
struct FaultFixture : StoreFixture {
    static constexpr int killed = -1;
    static constexpr int saved = 0;

    struct Report {
        int calls = 0;
        char message[400] = {};
    };

    QByteArray before;
    // Shared with the children.
    Report *report = static_cast<Report *>(
        ::mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));

    FaultFixture()
    {
        memory.displays.clear();
        memory.addDisplay(1, {0, 0, 64, 48});
        QDir().mkpath(root());
        WorkspaceLibrary library{.projects = {{.name = "Project"}}};
        for (int i = 0; i < 5; ++i)
            library.checkpoints.append({.title = QString::number(i), .projectID = library.projects[0].id});
        CheckpointRepository(root()).saveLibrary(library);
        before = fileBytes(libraryPath());
    }

    ~FaultFixture() { ::munmap(report, sizeof(Report)); }

    // As a command does it.
    bool save()
    {
        try {
            const LibraryLock lock = LibraryLock::waitFor({.root = root()}, {});
            AppStore &own = reopen();
            const CaptureRequest request{.projectID = own.library.projects().value(0).id, .title = "new"};
            const Outcome outcome = blockOn(own.capture.saveMoment(request));
            describe(outcome.problems().join(' '));
            return outcome.isDone;
        } catch (const Failure &failure) {
            describe(failure.description());
            return false;
        }
    }

    void describe(const QString &text) { qstrncpy(report->message, text.toUtf8().constData(), sizeof report->message); }

    // The exit status of a child that saves after the beginning.
    int saveInChild(const std::function<void()> &begin)
    {
        *report = {};
        Child child([&](const Child::Signal &ready) {
            constexpr unsigned longest = 60; // Seconds.
            ::alarm(longest);
            ready();
            begin();
            const bool isSaved = save();
            report->calls = faults::calls();
            ::_exit(isSaved ? saved : 1);
        });
        return child.wait();
    }

    int saveWith(const Plan &plan)
    {
        return saveInChild([&] { faults::begin(plan); });
    }

    // All old checkpoints are there, and the new one if the save said so.
    void check(int status)
    {
        const QByteArray after = fileBytes(libraryPath());
        if (after == before) {
            CHECK(status != saved);
            return;
        }
        CHECK(status != 1);
        const QList<Checkpoint> found = CheckpointRepository(root()).loadLibrary().checkpoints;
        REQUIRE(found.size() == 6);
        for (int i = 0; i < 5; ++i)
            CHECK(std::count_if(found.begin(), found.end(),
                                [i](const Checkpoint &one) { return one.title == QString::number(i); }) == 1);
    }

    // At every call, one after the other.
    void attack(Plan plan)
    {
        plan.folder = QFile::encodeName(root());
        const int all = saveWith(Plan{.folder = plan.folder}) == saved ? report->calls : 0;
        REQUIRE(all > 20);
        for (plan.call = 1; plan.call <= all; ++plan.call) {
            CAPTURE(plan.call);
            CAPTURE(plan.error);
            QDir(root()).removeRecursively();
            writeFile(libraryPath(), before);
            const int status = saveWith(plan);
            CAPTURE(report->message);
            if (plan.kind != Plan::Kind::Kill)
                CHECK(status != killed);
            if (status == 1)
                CHECK(report->message[0] != 0);
            check(status);
        }
    }
};

} // namespace

TEST_CASE_FIXTURE(FaultFixture,
                  "whichever call of the system fails or is the last, a save is whole or refused with a sentence")
{
    for (const int error : {EIO, ENOSPC, EACCES, EINTR})
        attack({.kind = Plan::Kind::Error, .error = error});
    for (const int error : {EIO, ENOSPC})
        attack({.kind = Plan::Kind::LastingError, .error = error});
    attack({.kind = Plan::Kind::Kill});
}

TEST_CASE_FIXTURE(FaultFixture, "where no thread can be started, a save is refused at once")
{
    CHECK(saveInChild([] { faults::setThreads(false); }) == 1);
    CHECK(QByteArray(report->message).contains("no more work: Resource temporarily unavailable."));
    check(1);
}
