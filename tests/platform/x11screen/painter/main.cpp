// SPDX-License-Identifier: GPL-3.0-or-later
// An application for tests of pictures: one painted window, described by "name=value" arguments. Says "ready" when it
// is shown, "drawn" after a line on standard input made it draw, and ends with its input.
#include "tests/platform/x11screen/painter/PaintedWindow.h"

#include <QList>

#include <array>
#include <cstdio>
#include <optional>

#include <poll.h>
#include <unistd.h>

using namespace ardeno::screen_test;

namespace {

QRect rectangle(const QByteArray &text)
{
    const QList<QByteArray> numbers = text.split(',');
    return {numbers.value(0).toInt(), numbers.value(1).toInt(), numbers.value(2).toInt(), numbers.value(3).toInt()};
}

void apply(Painting &painting, const QByteArray &name, const QByteArray &value)
{
    if (name == "class")
        painting.windowClass = value;
    else if (name == "colour")
        painting.colour = value.toUInt(nullptr, 16);
    else if (name == "geometry")
        painting.geometry = rectangle(value);
    else if (name == "background")
        painting.hasBackground = value != "none";
    else if (name == "drawing")
        painting.drawing = value == "never"   ? Painting::Drawing::Never
                           : value == "again" ? Painting::Drawing::WhenAskedAgain
                                              : Painting::Drawing::Once;
    else if (name == "leader")
        painting.leader = value.toUInt();
    else if (name == "kind")
        painting.isPopup = value == "popup";
    else if (name == "shape")
        painting.isRound = value == "cross";
    else if (name == "alpha")
        painting.hasAlpha = value == "yes";
}

void say(const char *word)
{
    std::printf("%s\n", word);
    std::fflush(stdout);
}

// Windows that come and go as fast as they can, for as long as the input is open.
void flicker(const Painting &painting)
{
    say("ready");
    pollfd input = {STDIN_FILENO, POLLIN, 0};
    while (poll(&input, 1, 0) == 0)
        PaintedWindow(painting).waitUntilShown();
}

} // namespace

int main(int argc, char **argv)
{
    Painting painting;
    bool flickers = false;
    QRect menu;
    for (int i = 1; i < argc; ++i) {
        const QByteArray argument = argv[i];
        const qsizetype equals = argument.indexOf('=');
        apply(painting, argument.left(equals), argument.mid(equals + 1));
        if (argument.startsWith("menu="))
            menu = rectangle(argument.mid(equals + 1));
        flickers = flickers || argument == "life=flicker";
    }
    if (flickers) {
        flicker(painting);
        return 0;
    }

    PaintedWindow window(painting);
    window.waitUntilShown();
    // A second window of the same process that says nothing of whose it is.
    std::optional<PaintedWindow> popup;
    if (!menu.isEmpty()) {
        painting.windowClass.clear();
        painting.geometry = menu;
        painting.isPopup = true;
        popup.emplace(painting).waitUntilShown();
    }
    say("ready");
    for (;;) {
        window.step();
        std::array<pollfd, 2> watched = {pollfd{window.descriptor(), POLLIN, 0}, pollfd{STDIN_FILENO, POLLIN, 0}};
        poll(watched.data(), watched.size(), -1);
        char line[16];
        if (watched[1].revents != 0) {
            if (read(STDIN_FILENO, line, sizeof line) <= 0)
                return 0;
            window.draw();
            say("drawn");
        }
        if ((watched[0].revents & (POLLERR | POLLHUP)) != 0)
            return 1;
    }
}
