// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/store/StoreFixture.h"
#include "ui/ViewParts.h"
#include "ui/controls/DropDown.h"
#include "ui/quicksave/QuickSaveController.h"
#include "ui/theme/AppTheme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace ardeno;

namespace {

// The panel over a store on a real folder, worked by keys and clicks.
struct QuickSaveFixture : StoreFixture {
    int timesWindowShown = 0;
    std::unique_ptr<QuickSaveController> controller;

    ~QuickSaveFixture()
    {
        controller.reset();
        AppTheme::instance().setAppearance({});
    }

    void start()
    {
        controller = std::make_unique<QuickSaveController>(ViewParts::ofCapture(store()), store().shortcut, desktop,
                                                           [this] { ++timesWindowShown; });
        settle();
    }

    static void settle()
    {
        for (int round = 0; round < 5; ++round) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
        }
    }

    void pressHotKey()
    {
        REQUIRE(memory.keyListener.pressed);
        memory.keyListener.pressed();
        settle();
    }

    static QuickSavePanel *panel()
    {
        for (QWidget *const window : QApplication::topLevelWidgets()) {
            if (auto *const found = dynamic_cast<QuickSavePanel *>(window); found && found->isVisible())
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

    template <typename Control>
    static Control *control(const QString &name)
    {
        for (Control *const found : panel()->findChildren<Control *>()) {
            if (found->isVisible() && found->accessibleName().startsWith(name))
                return found;
        }
        return nullptr;
    }

    static QAbstractButton *button(const QString &text)
    {
        for (auto *const found : panel()->findChildren<QAbstractButton *>()) {
            if (found->text() == text && found->isVisible())
                return found;
        }
        return nullptr;
    }

    static bool sees(const QString &text)
    {
        const auto labels = panel()->findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(),
                           [&](const QLabel *label) { return label->isVisible() && label->text() == text; });
    }

    static void type(const QString &text)
    {
        REQUIRE(QApplication::focusWidget());
        QTest::keyClicks(QApplication::focusWidget(), text);
        settle();
    }

    static void press(Qt::Key key)
    {
        QTest::keyClick(QApplication::focusWidget(), key);
        settle();
    }

    static void picture(const QString &name)
    {
        QDir().mkpath(ARDENO_PICTURES);
        CHECK(panel()->grab().save(QString(ARDENO_PICTURES "/%1.png").arg(name)));
    }
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

TEST_CASE_FIXTURE(QuickSaveFixture,
                  "a checkpoint is saved from the panel, and the keyboard goes back to whoever had it")
{
    store().projects.createProject("Thesis");
    start();
    open();
    CHECK(QTest::qWaitFor([this] { return memory.focusRequests == QStringList{"remember", "above"}; }));
    CHECK(control<DropDown>("Project")->text() == "Thesis");
    CHECK(sees("Leave yourself a starting point."));
    CHECK(sees("All screens and workspace saved on this Mac."));
    type("Plot the variance");
    press(Qt::Key_Return);
    REQUIRE(QTest::qWaitFor([] { return !panel(); }));
    REQUIRE(store().library.checkpoints().size() == 1);
    CHECK(store().library.checkpoints().first().nextStep == "Plot the variance");
    CHECK(store().messages.notice() == "Checkpoint saved.");
    CHECK(store().drafts.draftNext().isEmpty());
    CHECK(memory.focusRequests.last() == "return");
}

TEST_CASE_FIXTURE(QuickSaveFixture, "a panel that is given up keeps what was typed, for the next time")
{
    store().projects.createProject("Thesis");
    start();
    open();
    type("Plot");
    press(Qt::Key_Escape);
    CHECK_FALSE(panel());
    CHECK(store().library.checkpoints().isEmpty());
    open();
    CHECK(control<QLineEdit>("Next time")->text() == "Plot");
    panel()->close();
    settle();
    CHECK_FALSE(store().sheets.showQuickCapture());
    CHECK(store().drafts.draftNext() == "Plot");
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
    CHECK(control<DropDown>("Project")->text() == u"New project…"_qs);
    QAbstractButton *const save = button("Save checkpoint");
    CHECK_FALSE(save->isEnabled());
    type("  ");
    CHECK_FALSE(save->isEnabled());
    type("Garden");
    CHECK(save->isEnabled());
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
        wasOpenMeanwhile = panel() && !button("Save checkpoint")->isEnabled();
    };
    type("Plot");
    press(Qt::Key_Return);
    REQUIRE(QTest::qWaitFor([this] { return store().messages.captureIssue().has_value(); }));
    settle();
    REQUIRE(panel());
    CHECK(wasOpenMeanwhile);
    CHECK(sees(*store().messages.captureIssue()));
    CHECK(store().messages.captureIssue()->endsWith("No display is available to capture."));
    CHECK(store().drafts.draftNext() == "Plot");
    picture("quick-save-failed");

    memory.whileComposing = {};
    memory.pictureFailure.reset();
    breakLibrary();
    button("Save checkpoint")->click();
    REQUIRE(QTest::qWaitFor([this] { return store().messages.error().has_value(); }));
    settle();
    CHECK(sees(*store().messages.error()));
    press(Qt::Key_Escape);
    CHECK_FALSE(panel());
}

TEST_CASE_FIXTURE(QuickSaveFixture, "more options hold the title and the browser tabs, in light and dark")
{
    store().projects.createProject("Thesis");
    start();
    open();
    CHECK_FALSE(control<QLineEdit>("Checkpoint title"));
    picture("quick-save-light");
    const int collapsed = panel()->height();
    button("More options")->click();
    settle();
    CHECK(panel()->height() > collapsed);
    REQUIRE(control<QLineEdit>("Checkpoint title"));
    const bool withTabs = store().drafts.includeBrowser();
    QTest::mouseClick(button("Include browser tabs"), Qt::LeftButton);
    CHECK(store().drafts.includeBrowser() != withTabs);
    control<QLineEdit>("Checkpoint title")->setFocus();
    type("Second run");
    CHECK(store().drafts.draftTitle() == "Second run");
    picture("quick-save-more-light");
    AppTheme::instance().setAppearance({Scheme::Dark, Contrast::Normal, Motion::Normal});
    settle();
    picture("quick-save-more-dark");
    button("More options")->click();
    settle();
    CHECK(panel()->height() == collapsed);
    picture("quick-save-dark");
}
