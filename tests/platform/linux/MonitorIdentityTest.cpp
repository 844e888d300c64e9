// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/MonitorIdentity.h"

#include "tests/Printing.h"

#include <doctest/doctest.h>

using namespace ardeno;

namespace {

QByteArray edid(const QByteArray &model, char serial = 1)
{
    QByteArray block("\x00\xff\xff\xff\xff\xff\xff\x00", 8);
    block.resize(128, '\0');
    block[12] = serial;
    block.replace(72, 5, QByteArray("\x00\x00\x00\xfc\x00", 5));
    block.replace(77, model.size(), model);
    return block;
}

} // namespace

TEST_CASE("a monitor is known by the model that it names")
{
    const MonitorIdentity whole{"DP-1", edid("DELL U2715H\n ")};
    CHECK(whole.displayedName() == "DELL U2715H");
    CHECK(MonitorIdentity{"DP-1", edid("THIRTEEN CHAR")}.displayedName() == "THIRTEEN CHAR");
    CHECK(MonitorIdentity{"DP-1", edid("")}.displayedName() == "DP-1");
    CHECK(MonitorIdentity{"DP-1", whole.edid.left(100)}.displayedName() == "DP-1");
    CHECK(MonitorIdentity{"DP-1", QByteArray(128, 'x')}.displayedName() == "DP-1");
    CHECK(MonitorIdentity{"DP-1", {}}.displayedName() == "DP-1");
}

TEST_CASE("a monitor keeps its number on another connector and beside other monitors")
{
    const MonitorIdentity first{"DP-1", edid("ONE")};
    const MonitorIdentity second{"DP-2", edid("TWO")};
    const QList<quint32> both = MonitorIdentity::stableNumbers({first, second});
    const QList<quint32> swapped =
        MonitorIdentity::stableNumbers({{"DP-1", second.edid}, {"DP-2", first.edid}, {"HDMI-1", {}}});

    CHECK(both[0] == swapped[1]);
    CHECK(both[1] == swapped[0]);
    CHECK(both[0] != both[1]);
    CHECK(MonitorIdentity::stableNumbers({first}) == QList<quint32>{both[0]});
}

TEST_CASE("monitors that cannot be told apart by their description are told apart by their connector")
{
    const QByteArray twin = edid("TWIN");
    const QList<quint32> twins = MonitorIdentity::stableNumbers({{"DP-1", twin}, {"DP-2", twin}});
    const QList<quint32> reordered = MonitorIdentity::stableNumbers({{"DP-2", twin}, {"DP-1", twin}});
    CHECK(twins[0] != twins[1]);
    CHECK(twins[0] == reordered[1]);
    CHECK(twins[1] == reordered[0]);

    const QList<quint32> nameless = MonitorIdentity::stableNumbers({{"LEFT", {}}, {"RIGHT", {}}, {"LEFT", {}}});
    CHECK(nameless[0] != nameless[1]);
    CHECK(nameless[0] != nameless[2]);
}

TEST_CASE("the number of a monitor stays the same from one version of the program to the next")
{
    // Checkpoints that were saved earlier hold it.
    CHECK(MonitorIdentity::stableNumbers({{"screen", {}}}) == QList<quint32>{0x55c54c11});
}
