// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/macos/ApplicationsFolder.h"
#include "tests/Printing.h"

using namespace ardeno;

TEST_CASE("a move is advised once, outside of the very folder of applications, and nowhere without such a folder")
{
    struct Case {
        QString application;
        QString folder;
        bool wasAdvised;
        bool isAdvised;
    };

    const QList<Case> cases = {
        {"/Applications/Ardeno.app", "/Applications", false, false},
        {"/Applications/./Ardeno.app", "/Applications/", false, false},
        {"/Applications/Tools/Ardeno.app", "/Applications", false, true},
        {"/Users/ada/Applications/Ardeno.app", "/Applications", false, true},
        {"/Users/ada/Ardeno.app", "/Applications", true, false},
        {"/usr/bin/ardeno", "", false, false},
    };
    for (const Case &one : cases) {
        CAPTURE(one.application);
        CHECK(advisesMove(one.application, one.folder, one.wasAdvised) == one.isAdvised);
    }
}
