// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/resume/ResumeFixture.h"

#include <utility>

using namespace ardeno;
using namespace ardeno::desktop_test;

namespace {

struct RightWindowFixture : ResumeFixture {
    RightWindowFixture()
    {
        outputOf("thunar", {"-q"}); // What another test has left open.
        REQUIRE(eventually([] {
            for (const QString &line : windows({}))
                outputOf("wmctrl", {"-ic", line.section(' ', 0, 0)});
            return windows({}).isEmpty();
        }));
    }

    // "NUMBER X Y WIDTH HEIGHT" of every window whose title contains this, once they stand still.
    static QStringList windows(const QString &title)
    {
        QStringList last;
        QStringList now;
        const auto look = [&] {
            last = std::exchange(now, {});
            for (const QString &line : outputOf("wmctrl", {"-lG"}).split('\n')) {
                const QStringList words = line.simplified().split(' ');
                if (words.size() > 6 && line.contains(title))
                    now += (words.mid(0, 1) + words.mid(2, 4)).join(' ');
            }
            return now == last;
        };
        REQUIRE(eventually(look));
        return now;
    }

    // A checkpoint that knows what this window shows.
    QString saved(const QString &title, const char *place) const
    {
        QString id;
        CHECK(eventually([&] {
            id = run({"save", "--project", "P", "--json"}).json().value("id").toString();
            return window(run({"show", id, "--json"}).json(), title).contains(QLatin1String(place));
        }));
        return id;
    }

    QString folder(const QString &path) const
    {
        QDir().mkpath(home.filePath(path));
        return home.filePath(path);
    }
};

} // namespace

TEST_CASE_FIXTURE(RightWindowFixture, "a folder of the same name elsewhere stays where it is; the saved one is opened")
{
    const QString mine = folder("Documents/Thesis");
    const Application before("thunar", {mine});
    place("Thesis", "900,80,640,420");
    const QString id = saved("Thesis", "locationURL");
    REQUIRE(windows("Thesis").size() == 1);
    const QString place = windows("Thesis").first().section(' ', 1);
    outputOf("thunar", {"-q"});
    REQUIRE(eventually([] { return windows("Thesis").isEmpty(); }));
    const Application other("thunar", {folder("Downloads/Thesis")});
    ResumeFixture::place("Thesis", "100,300,700,500");
    const QStringList there = windows("Thesis");
    REQUIRE(there.size() == 1);

    const ProgramResult result = run({"resume", id, "--json"});

    CAPTURE(result.out);
    CHECK(outcome(result).value("folders") == 1);
    const QStringList now = windows("Thesis");
    REQUIRE(now.size() == 2);
    CHECK(now.contains(there.first()));
    CHECK((now[0].endsWith(place) || now[1].endsWith(place)));
    outputOf("thunar", {"-q"});
}

TEST_CASE_FIXTURE(RightWindowFixture, "a missing text comes back in a window of its own, once, and nothing else moves")
{
    const QStringList texts = {write("first.txt", "1\n"), write("second.txt", "2\n")};
    const Application editor("mousepad", QStringList{"--opening-mode=window"} + texts);
    place("first.txt", "120,90,700,500");
    place("second.txt", "250,220,700,500");
    const QStringList before = windows("first.txt");
    const QString id = saved("first.txt", "documentURL");
    const QStringList right = windows("second.txt");
    outputOf("wmctrl", {"-c", "first.txt"});
    REQUIRE(eventually([&] { return windows("first.txt").isEmpty(); }));
    for (int round = 0; round < 3; ++round) {
        CAPTURE(round);
        const ProgramResult result = run({"resume", id, "--json"});
        CAPTURE(result.out);
        CHECK(outcome(result).value("documents") == (round == 0 ? 1 : 0));
        CHECK(windows("second.txt") == right);
        REQUIRE(windows("first.txt").size() == 1);
        CHECK(windows("first.txt").first().section(' ', 1) == before.first().section(' ', 1));
    }
}

TEST_CASE_FIXTURE(RightWindowFixture, "what was out of sight is saved, and comes back there without anybody following")
{
    outputOf("wmctrl", {"-n", "2"});
    const QStringList texts = {write("small.note", "1\n"), write("away.note", "2\n"), write("wide.note", "3\n")};
    const Application editor("mousepad", QStringList{"--opening-mode=window"} + texts);
    const auto now = [&](const char *title) {
        const QString number = windows(title).value(0).section(' ', 0, 0);
        QString text = outputOf("xprop", {"-id", number, "_NET_WM_STATE", "_NET_WM_DESKTOP"});
        // It came while the user was elsewhere.
        return text.remove("_NET_WM_STATE_DEMANDS_ATTENTION").remove(", _NET_WM_STATE_FOCUSED");
    };
    for (const char *title : {"small.note", "away.note", "wide.note"})
        place(title, "120,90,700,500");
    outputOf("xdotool", {"windowminimize", windows("small.note").first().section(' ', 0, 0)});
    outputOf("wmctrl", {"-r", "away.note", "-t", "1"});
    outputOf("wmctrl", {"-r", "wide.note", "-b", "add,maximized_vert,maximized_horz"});
    const QString id = saved("small.note", "documentURL");
    QStringList before;
    for (const char *title : {"small.note", "away.note", "wide.note"}) {
        before += now(title);
        outputOf("wmctrl", {"-ic", windows(title).first().section(' ', 0, 0)});
    }
    CAPTURE(outputOf("wmctrl", {"-lG"}));
    REQUIRE(eventually([&] { return windows(".note").isEmpty(); }));

    const ProgramResult result = run({"resume", id, "--json"});

    CAPTURE(result.out);
    CHECK(outcome(result).value("windowsSkipped").toArray().isEmpty());
    CHECK(QStringList{now("small.note"), now("away.note"), now("wide.note")} == before);
    CHECK(before[0].contains("HIDDEN"));
    CHECK(before[1].contains("= 1"));
    CHECK(before[2].contains("MAXIMIZED"));
    CHECK(outputOf("xprop", {"-root", "_NET_CURRENT_DESKTOP"}).contains("= 0"));
    outputOf("wmctrl", {"-n", "1"});
}
