// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/application/ApplicationFixture.h"

using namespace ardeno;
using desktop_test::Application;
using desktop_test::eventually;
using desktop_test::outputOf;

namespace {

const QString panelTitle = "Quick save checkpoint";
const QString hotKey = "ctrl+alt+super+s";

// A terminal that somebody works in.
struct QuickSaveFixture : ApplicationFixture {
    Application terminal{"xterm", {"-geometry", "100x40+200+150", "-T", "ablation run", "-e", "sleep", "1000"}};
    QString terminalWindow = QString::number(terminal.waitForWindow("ablation run"));

    void work() const
    {
        outputOf("xdotool", {"windowactivate", terminalWindow});
        REQUIRE(eventually([this] { return activeWindow() == terminalWindow; }));
    }

    void openPanel() const
    {
        key(hotKey);
        REQUIRE(waitForWindow(panelTitle));
        REQUIRE(eventually([this] { return activeWindow() == window(panelTitle); }));
    }

    QString nextStep(int index) const { return checkpoints().at(index).toObject().value("nextStep").toString(); }
};

} // namespace

TEST_CASE_FIXTURE(QuickSaveFixture, "a checkpoint is saved over another application, also one that fills the screen")
{
    startApplication({});
    REQUIRE(run({"save", "--project", "Thesis", "--no-tabs"}).status == 0);
    work();
    openPanel();
    type("Plot");
    picture("quick-save-over-terminal");
    key("Return");
    REQUIRE(eventually([this] { return checkpoints().size() == 2; }));
    CHECK(waitForNoWindow(panelTitle));
    CHECK(eventually([this] { return activeWindow() == terminalWindow; }));
    CHECK(nextStep(0) == "Plot");
    CHECK(checkpoints().at(0).toObject().value("windows").toArray().size() == 1); // Without the panel.

    outputOf("wmctrl", {"-r", "ablation run", "-b", "add,fullscreen"});
    openPanel();
    type("Seeds");
    picture("quick-save-over-full-screen");
    key("Return");
    REQUIRE(eventually([this] { return checkpoints().size() == 3; }));
    CHECK(nextStep(0) == "Seeds");
    CHECK(eventually([this] { return activeWindow() == terminalWindow; }));
}

TEST_CASE_FIXTURE(QuickSaveFixture, "the panel is opened by a command, once, and comes back with what was typed")
{
    CHECK(run({"quick-save"}).status == 0); // Starts an application.
    const qint64 process = libraryHolder();
    REQUIRE(process > 0);
    const auto panels = [&] {
        return outputOf("xdotool", {"search", "--all", "--onlyvisible", "--pid", QString::number(process), "--name",
                                    '^' + panelTitle + '$'})
            .split('\n', Qt::SkipEmptyParts);
    };
    REQUIRE(eventually([&] { return panels().size() == 1; }));
    for (int i = 0; i < 10; ++i)
        key(hotKey);
    REQUIRE(eventually([&] { return activeWindow() == panels().value(0); }));
    CHECK(panels().size() == 1);
    type("Garden");
    key("Escape");
    REQUIRE(eventually([&] { return panels().isEmpty(); }));
    CHECK(run({"quick-save"}).status == 0);
    REQUIRE(eventually([&] { return panels().size() == 1 && activeWindow() == panels().value(0); }));
    key("Return"); // Into the project that was named before.
    CHECK(eventually([this] { return checkpoints().size() == 1; }));
    outputOf("kill", {QString::number(process)});
    CHECK(eventually([&] { return !QFile::exists("/proc/" + QString::number(process)); }));
    CHECK(library().value("projects").toArray().at(0).toObject().value("name") == "Garden");
}
