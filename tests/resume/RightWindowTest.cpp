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

TEST_CASE_FIXTURE(RightWindowFixture, "an editor's window that is right stays so when the missing text becomes its tab")
{
    const QStringList texts = {write("first.txt", "1\n"), write("second.txt", "2\n")};
    const Application editor("mousepad", QStringList{"--opening-mode=window"} + texts);
    place("first.txt", "120,90,700,500");
    place("second.txt", "250,220,700,500");
    windows(home.path());
    const QString id = saved("first.txt", "documentURL");
    const QStringList right = windows("second.txt");
    outputOf("wmctrl", {"-c", "first.txt"});
    REQUIRE(eventually([] { return windows("first.txt").isEmpty(); }));
    for (int round = 0; round < 3; ++round) {
        CAPTURE(round);
        const ProgramResult result = run({"resume", id, "--json"});
        CAPTURE(result.out);
        CHECK_MESSAGE(outcome(result).value("documents") == (round == 0 ? 1 : 0), "open in a tab");
        CHECK(windows(home.path()) == right);
    }
}
