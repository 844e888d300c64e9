// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/keys/X11HotKeys.h"
#include "tests/Printing.h"
#include "tests/desktop/Desktop.h"
#include "tests/support/FailureOf.h"

using namespace ardeno;
using desktop_test::eventually;
using desktop_test::outputOf;

namespace {

struct HotKeysFixture {
    X11HotKeys keys;
    int pressed = 0;
    QStringList lost = {};

    HotKeys::Listener listener()
    {
        return {.pressed = [this] { ++pressed; },
                .lost = [this](const Failure &failure) { lost << failure.description(); }};
    }

    ~HotKeysFixture() { outputOf("setxkbmap", {"us"}); }

    bool reacts(const QString &combination)
    {
        const int before = pressed;
        // A layout takes a moment until it reaches everybody.
        return eventually([&] {
            outputOf("xdotool", {"key", combination});
            return pressed > before;
        });
    }
};

using Combination = HotKeys::Combination;

} // namespace

TEST_CASE_FIXTURE(HotKeysFixture, "a hot key is heard with any lock, and no longer once another was chosen")
{
    keys.listen(Combination::ControlAltSuperS, listener());
    CHECK(reacts("ctrl+alt+super+s"));
    for (const QString lock : {"Num_Lock", "Caps_Lock"}) {
        outputOf("xdotool", {"key", lock});
        CHECK(reacts("ctrl+alt+super+s"));
    }
    for (const QString lock : {"Num_Lock", "Caps_Lock"})
        outputOf("xdotool", {"key", lock});
    keys.listen(Combination::ShiftSuperS, listener());
    CHECK(reacts("shift+super+s"));
    const int before = pressed;
    outputOf("xdotool", {"key", "ctrl+alt+super+s", "key", "ctrl+shift+s"});
    CHECK(reacts("shift+super+s"));
    CHECK(pressed == before + 1);
}

TEST_CASE_FIXTURE(HotKeysFixture, "a hot key follows the letter to another layout")
{
    keys.listen(Combination::ControlAltSuperS, listener());
    outputOf("setxkbmap", {"us", "dvorak"});
    CHECK(reacts("ctrl+alt+super+s"));
    outputOf("setxkbmap", {"ru"}); // Without such a letter it is the key in its place.
    CHECK(reacts("ctrl+alt+super+39"));
    CHECK(lost.isEmpty());
}

TEST_CASE_FIXTURE(HotKeysFixture, "keys of another program are refused, and free again when it lets go")
{
    X11HotKeys other;
    other.listen(Combination::ShiftSuperS, {});
    CHECK(failureOf([&] { keys.listen(Combination::ShiftSuperS, listener()); }).contains("Another program"));
    keys.listen(Combination::ControlAltSuperS, listener());
    CHECK(reacts("ctrl+alt+super+s"));
    other.release();
    keys.listen(Combination::ShiftSuperS, listener());
    CHECK(reacts("shift+super+s"));
}
