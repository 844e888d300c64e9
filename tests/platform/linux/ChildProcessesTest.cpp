// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/running/ChildProcesses.h"

#include <QTest>

#include <doctest/doctest.h>

#include <csignal>
#include <unistd.h>

using namespace ardeno;

namespace {

pid_t waitingProcess()
{
    const pid_t process = ::fork();
    if (process == 0) {
        ::pause();
        ::_exit(0);
    }
    return process;
}

} // namespace

TEST_CASE("an application that fails is named once, one that is ended after it was started never")
{
    ChildProcesses children;
    int failures = 0;
    const pid_t failing = waitingProcess();
    const pid_t lasting = waitingProcess();
    const FailedStart start{"org.failing", "Failing", {"/paper.pdf"}};
    children.add(failing, start, [&] { ++failures; });
    children.add(lasting, {}, [&] { ++failures; });
    ::kill(failing, SIGKILL);
    REQUIRE(QTest::qWaitFor([&] { return !children.isRunning(failing); }));
    CHECK(children.takeFailures() == QList{start});

    ::kill(lasting, SIGKILL);
    REQUIRE(QTest::qWaitFor([&] { return !children.isRunning(lasting); }));
    CHECK(children.takeFailures().isEmpty());
    CHECK(failures == 1);
}
