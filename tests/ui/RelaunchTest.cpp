// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/Relaunch.h"
#include "tests/Printing.h"

using namespace ardeno;

TEST_CASE("only a number names a predecessor")
{
    CHECK(Relaunch::predecessor({"ardeno", "--in-place-of", "4711"}) == 4711);
    for (const QStringList &arguments :
         {QStringList{"ardeno"}, QStringList{"ardeno", "--in-place-of"}, QStringList{"ardeno", "--in-place-of", "x"},
          QStringList{"ardeno", "--in-place-of", "-1"}})
        CHECK_FALSE(Relaunch::predecessor(arguments));
}
