// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/WindowFixture.h"
#include "ui/ViewParts.h"
#include "ui/quicksave/QuickSaveController.h"

#include <QApplication>
#include <QTest>

using namespace ardeno;

namespace {

// The panel over a store on a real folder, worked by keys and clicks.
struct QuickSaveFixture : WindowFixture {
    int timesWindowShown = 0;
    std::unique_ptr<QuickSaveController> controller;

    ~QuickSaveFixture() override { controller.reset(); }

    void start()
    {
        controller = std::make_unique<QuickSaveController>(ViewParts::ofCapture(store()), store().shortcut, desktop,
                                                           [this] { ++timesWindowShown; });
        settle();
    }

    void pressHotKey()
    {
        REQUIRE(memory.keyListener.pressed);
        memory.keyListener.pressed();
        settle();
    }

    static QuickSavePanel *panel()
    {
        for (QWidget *const candidate : QApplication::topLevelWidgets()) {
            if (auto *const found = dynamic_cast<QuickSavePanel *>(candidate); found && found->isVisible())
                return found;
        }
        return nullptr;
    }

    void open()
    {
        pressHotKey();
        REQUIRE(panel());
        REQUIRE(QTest::qWaitForWindowActive(panel()));
    }

protected:
    QWidget *surface() const override { return panel(); }

    QWidget *pressable() const override { return panel(); }
};

using Combination = HotKeys::Combination;

} // namespace

TEST_CASE_FIXTURE(QuickSaveFixture, "the hot key follows the setting, and says when another program has it")
{
    memory.areKeysTaken = true;
    start();
    const QString taken = "That shortcut is unavailable. Choose another shortcut or use the menu bar.";
    CHECK(store().shortcut.shortcutIssue() == taken);
    memory.areKeysTaken = false;
    store().shortcut.setShortcutChoice(1);
    settle();
    CHECK(memory.keys == Combination::ShiftSuperS);
    CHECK_FALSE(store().shortcut.shortcutIssue());
    store().shortcut.setShortcutChoice(7); // As the default.
    settle();
    CHECK(memory.keys == Combination::ControlAltSuperS);
    memory.keyListener.lost(Failure("HotKeys", 1, "Another program has these keys."));
    CHECK(store().shortcut.shortcutIssue() == taken);
    store().shortcut.setShortcutChoice(2); // Off.
    settle();
    CHECK_FALSE(memory.keys);
    CHECK_FALSE(store().shortcut.shortcutIssue());
    store().shortcut.setShortcutChoice(0);
    settle();
    controller.reset();
    CHECK_FALSE(memory.keys);
}

TEST_CASE_FIXTURE(QuickSaveFixture, "the hot key opens one panel, and none over an unfinished sheet")
{
    store().projects.createProject("Thesis");
    start();
    store().sheets.open(&OpenSheets::showNewProject);
    pressHotKey();
    CHECK_FALSE(panel());
    CHECK(timesWindowShown == 1);
    store().sheets.close(&OpenSheets::showNewProject);
    for (int i = 0; i < 10; ++i)
        pressHotKey();
    REQUIRE(panel());
    const QuickSavePanel *const first = panel();
    store().sheets.open(&OpenSheets::showCapture); // A sheet that opens now is none of the panel's business.
    pressHotKey();
    CHECK(panel() == first);
    CHECK(timesWindowShown == 1);
    CHECK(memory.focusRequests.count("remember") == 1);
}

TEST_CASE_FIXTURE(QuickSaveFixture, "a first checkpoint needs the name of a new project")
{
    start();
    open();
    CHECK(findButton(u"Project: New project…"_qs));
    CHECK(isOff("Save checkpoint"));
    type("  ");
    CHECK(isOff("Save checkpoint"));
    type("Garden");
    CHECK(findButton("Save checkpoint"));
    picture("quick-save-new-project");
    press(Qt::Key_Return);
    REQUIRE(QTest::qWaitFor([] { return !panel(); }));
    CHECK(store().library.projects().first().name == "Garden");
    REQUIRE(store().library.checkpoints().size() == 1);
}

TEST_CASE_FIXTURE(QuickSaveFixture,
                  "a save that fails keeps the panel open with the reason, and what is being saved is awaited")
{
    store().projects.createProject("Thesis");
    start();
    open();
    memory.pictureFailure = Failure("Capture", 1, "No display is available to capture.");
    bool wasOpenMeanwhile = false;
    memory.whileComposing = [&] {
        panel()->close();
        press(Qt::Key_Escape);
        wasOpenMeanwhile = panel() && isOff("Save checkpoint");
    };
    type("Plot");
    press(Qt::Key_Return);
    REQUIRE(QTest::qWaitFor([this] { return store().messages.captureIssue().has_value(); }));
    settle();
    REQUIRE(panel());
    CHECK(wasOpenMeanwhile);
    CHECK(seesText(*store().messages.captureIssue()));
    CHECK(store().messages.captureIssue()->endsWith("No display is available to capture."));
    CHECK(store().drafts.draftNext() == "Plot");
    picture("quick-save-failed");

    memory.whileComposing = {};
    memory.pictureFailure.reset();
    breakLibrary();
    click("Save checkpoint");
    REQUIRE(QTest::qWaitFor([this] { return store().messages.error().has_value(); }));
    settle();
    CHECK(seesText(*store().messages.error()));
    press(Qt::Key_Escape);
    CHECK_FALSE(panel());
}

TEST_CASE_FIXTURE(QuickSaveFixture, "more options hold the title and the browser tabs, in light and dark")
{
    store().projects.createProject("Thesis");
    start();
    open();
    const QString title = "Checkpoint title (automatic if empty)";
    CHECK_FALSE(widget(title));
    pictures("quick-save");
    const int collapsed = panel()->height();
    click("More options");
    CHECK(panel()->height() > collapsed);
    REQUIRE(widget(title));
    const bool withTabs = store().drafts.includeBrowser();
    click("Include browser tabs");
    CHECK(store().drafts.includeBrowser() != withTabs);
    widget(title)->setFocus();
    type("Second run");
    CHECK(store().drafts.draftTitle() == "Second run");
    pictures("quick-save-more");
    click("More options");
    CHECK(panel()->height() == collapsed);
}
