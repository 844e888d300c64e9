// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/browsers/BrowserFixture.h"

#include "support/Identifiers.h"

#include <QRegularExpression>

using namespace ardeno;

namespace {

struct ChromiumFixture : BrowserFixture {
    const QStringList flags =
        desktop_test::chromiumArguments("--lang=en-US") + QStringList{"--user-data-dir=" + folder.filePath("profile")};
};

const QStringList oddTitles = {
    "First",    u"Zürich – 日本語 🎈"_qs, "<b>\"quoted\" & 'so on'</b>", u"שלום עולם"_qs, "a - b - Chromium",
    "x%1y%n\\", QString(300, 'l'),
};

} // namespace

TEST_CASE_FIXTURE(ChromiumFixture, "Chromium's tabs are those of its ordinary windows, in order and with their titles")
{
    CHECK(listed().value(0).startsWith("No supported browser was open."));
    QStringList first;
    QStringList second;
    QStringList expected;
    for (int number = 0; number < 12; ++number) {
        const bool isFirst = number < oddTitles.size();
        const QString title = isFirst ? oddTitles[number] : QString("Second %1").arg(number);
        const QString address = page(QString("page%1.html").arg(number), title);
        (isFirst ? first : second) += address;
        expected += (isFirst ? "1 " : "2 ") + address + ' ' + title;
    }
    run("chromium", flags + first);
    REQUIRE(waitFor([&] { return hasWindow("First - "); }));
    tell("chromium", flags + QStringList{"--new-window"} + second);
    REQUIRE(waitFor([&] { return hasWindow("Second 7 - "); }));
    tell("chromium", flags + QStringList{"--incognito", page("secret.html", "Secret")});
    REQUIRE(waitFor([&] { return hasWindow("Secret - "); }));
    checkListed(expected);

    const auto open = openTabs();
    CHECK(open.tabs.first().browserID == "org.chromium.Chromium");
    CHECK(open.tabs.first().browserWindowID != open.tabs.last().browserWindowID);
    CHECK(open.tabs.first().browserWindowID.value_or(QString()).toLongLong() > 0);
    CHECK(open.writtenAt.has_value());

    CHECK(ordinaryTitles() == QStringList{"First - Chromium", "Second 7 - Chromium"});

    minimise("Second 7 - ");
    checkListed(expected);

    close("First - ");
    checkListed(QStringList(expected.mid(first.size())).replaceInStrings(QRegularExpression("^2 "), "1 "));

    // Chromium still writes its last ordinary window as open, and the private one may be it for all that is known.
    close("Second 7 - ");
    checkListed({"Whether every saved page of Chromium was still open could not be checked."});
    const auto uncertain = openTabs();
    CHECK(uncertain.tabs.size() == second.size());
    CHECK(uncertain.uncertainTabIDs == idsOf(uncertain.tabs));
    CHECK(ordinaryTitles().isEmpty());
    CHECK(hasWindow("Secret - "));
}

TEST_CASE_FIXTURE(ChromiumFixture, "a Chromium with nothing but a private window has no tabs and no warning")
{
    run("chromium", flags + QStringList{"--incognito", page("secret.html", "Secret")});
    REQUIRE(waitFor([&] { return hasWindow("Secret - "); }));
    checkListed({});
    CHECK(source.isRunning("org.chromium.Chromium"));
}
