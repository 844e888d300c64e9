// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/Successor.h"
#include "tests/Printing.h"

#include <QProcess>

using namespace ardeno;

TEST_CASE("a successor waits for its predecessor to end, and not for ever")
{
    QProcess before;
    before.start("sleep", {"1000"});
    REQUIRE(before.waitForStarted());
    const qint64 process = before.processId();
    CHECK_FALSE(Successor::waitForEnd(process, std::chrono::milliseconds(50)));
    before.terminate();
    CHECK(Successor::waitForEnd(process));
    before.waitForFinished();
    CHECK(Successor::waitForEnd(process, std::chrono::milliseconds(0))); // It has gone.
}

TEST_CASE("only a number names a predecessor")
{
    CHECK(Successor::predecessor({"ardeno", "--in-place-of", "4711"}) == 4711);
    for (const QStringList &arguments :
         {QStringList{"ardeno"}, QStringList{"ardeno", "--in-place-of"}, QStringList{"ardeno", "--in-place-of", "x"},
          QStringList{"ardeno", "--in-place-of", "-1"}})
        CHECK_FALSE(Successor::predecessor(arguments));
}
