// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/documents/DocumentsFixture.h"

using namespace ardeno;
using namespace ardeno::desktop_test;

namespace {

using Paths = QList<std::optional<QString>>;

// Whatever the application is, it shows its folder in a window whose title has the folder's name.
struct Manager {
    const char *id;
    const char *program;
    QStringList arguments;
};

const QList<Manager> managers = {
    {"thunar", "thunar", {}},
    {"pcmanfm", "pcmanfm", {"--new-win"}},
    {"org.gnome.Nautilus", "nautilus", {"--new-window"}},
};

} // namespace

TEST_CASE_FIXTURE(DocumentsFixture,
                  "every file manager's window is kept with its folder, and with none where two cannot be told apart")
{
    const QString first = makeFolder("Projects/Thesis");
    const QString second = makeFolder("Other/Deep/Odd %20 #1 & more");
    const QString other = makeFolder("Elsewhere/Thesis");
    for (const Manager &manager : managers) {
        const QString id = manager.id;
        CAPTURE(id);
        Application started(manager.program, manager.arguments + QStringList{first});
        REQUIRE(started.waitForWindow("Thesis") != 0);
        CHECK(comesToShow(manager.id, first));
        // A second start hands the folder to the first process, whose command line stays as it was.
        const Application later(manager.program, manager.arguments + QStringList{second});
        CHECK(comesToShow(manager.id, second));
        CHECK_FALSE_MESSAGE(shown(manager.id).contains(other), "a folder of the same name that nobody looks at");
        // A busy manager may take longer to answer than it is waited for.
        CHECK_MESSAGE(eventually([&] { return !shown(manager.id).contains(std::nullopt); }),
                      "every window's folder is known");

        const Application twin(manager.program, manager.arguments + QStringList{other});
        REQUIRE(eventually([&] { return shown(manager.id).size() == 3; }));
        if (manager.id == QByteArray("org.gnome.Nautilus")) {
            CHECK(comesToShow(manager.id, other));
            CHECK(shown(manager.id).contains(first));
        } else {
            REQUIRE(eventually([&] { return visibleWindows("Thesis").size() >= 2; }));
            CHECK(eventually([&] { return shown(manager.id).count(std::nullopt) == 2; }));
            CHECK(shown(manager.id).contains(second));
        }
    }
}

TEST_CASE_FIXTURE(DocumentsFixture,
                  "a folder that was renamed while it is shown is kept under its new name or not at all")
{
    const QString folder = makeFolder("Projects/Thesis");
    Application thunar("thunar", {folder});
    REQUIRE(thunar.waitForWindow("Thesis") != 0);
    CHECK(comesToShow("thunar", folder));

    REQUIRE(QDir().rename(folder, home("Projects/Book")));

    REQUIRE(eventually([&] { return shown("thunar") != Paths{folder}; }));
    const Paths paths = shown("thunar");
    REQUIRE(paths.size() == 1);
    CHECK(paths.first() != folder);
}
