// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/Endpoints.h"
#include "support/BlockOn.h"
#include "tests/ui/WindowFixture.h"
#include "ui/controls/DropDown.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>
#include <QUrlQuery>

#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

using namespace ardeno;

namespace {

struct SettingsFixture : WindowFixture {
    SettingsFixture() { hasSettings = true; }

    void openSettings()
    {
        openWindow();
        click("Settings");
        REQUIRE(seesText("Private by design. Stored locally."));
    }

    // In the window's size and in the smallest one.
    void picturesOfBothSizes(const QString &name)
    {
        pictures(name);
        window->resize(960, 690);
        settle();
        pictures(name + "-narrow");
        window->resize(1170, 790);
        settle();
    }

    void fill(const QString &name, const QString &text)
    {
        field(name)->setFocus();
        press(Qt::Key_A, Qt::ControlModifier);
        type(text);
    }
};

} // namespace

TEST_CASE_FIXTURE(SettingsFixture, "what is set is shown, used at once and known after a restart")
{
    openSettings();
    picturesOfBothSizes("preferences");
    click("On launch: Last opened project");
    choose("Projects overview");
    CHECK(store().navigation.launchOverview());
    click(u"Quick save shortcut: ⌃⌥⌘S (default)"_qs);
    choose(u"⇧⌘S"_qs);
    CHECK(store().shortcut.shortcutChoice() == 1);
    store().shortcut.setShortcutIssue("That shortcut is unavailable. Choose another shortcut or use the menu bar.");
    settle();
    CHECK(seesText("That shortcut is unavailable. Choose another shortcut or use the menu bar."));
    picture("preferences-issue");
    widget(u"Quick save shortcut: ⇧⌘S"_qs)->setFocus();
    press(Qt::Key_Down);
    CHECK(store().shortcut.shortcutChoice() == 2);
    press(Qt::Key_Down); // There is no further one.
    CHECK(store().shortcut.shortcutChoice() == 2);
    widget("On launch: Projects overview")->setFocus();
    press(Qt::Key_L);
    CHECK_FALSE(store().navigation.launchOverview());
    press(Qt::Key_P);
    press(Qt::Key_P); // There is no other one.
    CHECK(store().navigation.launchOverview());
    click("Include browser tabs");
    CHECK(store().drafts.includeBrowser());
    click("Done");
    CHECK_FALSE(store().sheets.showSettings());

    restart();
    click("Settings");
    CHECK(findButton("On launch: Projects overview"));
    CHECK(findButton("Quick save shortcut: Off"));
    CHECK(button("Include browser tabs")->isChecked());
    CHECK_FALSE(findButton("Check for updates")); // Here nothing could check.
    press(Qt::Key_Escape);
    CHECK_FALSE(store().sheets.showSettings());
}

TEST_CASE_FIXTURE(SettingsFixture, "settings of another kind or a later version are shown as the defaults")
{
    {
        Preferences stored = preferences();
        stored.setValue(keys::quickSaveShortcut, 77);
        stored.setValue(PreferenceKey<QString>{"launchOverview"}, QString("maybe"));
        stored.setValue(PreferenceKey<QString>{"lastUpdateCheck"}, QString("tomorrow"));
        stored.setValue(PreferenceKey<QByteArray>{"includeBrowser"}, QByteArray());
        stored.setValue(PreferenceKey<QString>{"fromALaterVersion"}, QString("{1}"));
        REQUIRE(stored.synchronise());
    }
    openSettings();
    CHECK(findButton(u"Quick save shortcut: ⌃⌥⌘S (default)"_qs));
    CHECK_FALSE(button("Include browser tabs")->isChecked());
}

TEST_CASE_FIXTURE(SettingsFixture, "exclusions that cannot be read are told of, and started over by one button")
{
    preferences().setValue(keys::includeBrowser, true);                                  // Its folder.
    writeFile(home.filePath("settings/exclusions.json"), R"({"apps": [], "later": 1})"); // It lacks the websites.
    openWindow();
    REQUIRE(seesText("Something needs attention"));
    click("OK");
    click("Settings");
    click(u"Capture exclusions…"_qs);
    picturesOfBothSizes("exclusions-unreadable");
    CHECK_FALSE(findButton(u"Choose application…"_qs)); // None that can be pressed.
    click("Start over");
    CHECK(findButton(u"Choose application…"_qs));
    CHECK_FALSE(findButton("Start over"));
    CHECK_FALSE(store().rules.exclusionsIssue().has_value());
}

TEST_CASE_FIXTURE(SettingsFixture, "what is excluded by menu, by choice and by typing is left out of the next capture")
{
    memory.addApplication("org.chat", "Messages & more", {10, 10, 500, 500});
    memory.installed = {{"org.safe", "Password Safe", "no-such-icon"},
                        {"org.chat", "Messages & more", "/etc/passwd"},
                        {"org.editor", "Editor", "accessories-text-editor"}};
    for (int i = 0; i < 60; ++i)
        memory.installed.append({QString("org.app%1").arg(i), QString("Application %1").arg(i), {}});
    memory.tabRecords.insert("com.google.Chrome", u"1\u001f1\u001fMail\u001fhttps://mail.example.com/a\u001e"_qs);
    openSettings();
    click(u"Capture exclusions…"_qs);
    CHECK(seesText("No apps excluded"));
    picture("exclusions-empty");
    click("Exclude ");
    picture("exclusions-menu");
    choose("Messages && more");
    CHECK(store().rules.exclusions().appIDs() == QSet<QString>{"org.chat"});

    click(u"Choose application…"_qs);
    CHECK(list("Applications")->model()->rowCount() == 63);
    picturesOfBothSizes("application-chooser");
    type("PASS");
    CHECK(list("Applications")->model()->rowCount() == 1);
    CHECK(findButton("Exclude app"));
    press(Qt::Key_Return);
    CHECK(store().rules.exclusions().apps.last() == SavedApp{.id = "org.safe", .name = "Password Safe"});
    click(u"Choose application…"_qs);
    type("nothing like it");
    CHECK(seesText("No applications found"));
    CHECK(isOff("Exclude app"));
    click("Cancel");

    fill("Website", "*.example.com");
    press(Qt::Key_Return);
    CHECK(seesText("Enter a valid website domain or an http/https URL."));
    CHECK(window->sheets().topSheet()->accessibleName() == "Capture exclusions"); // Return did not close it.
    fill("Website", " HTTPS://Example.com:8080/path?q#f ");
    picturesOfBothSizes("exclusions-invalid");
    click("Exclude website");
    CHECK(store().rules.exclusions().domains == QStringList{"example.com"});
    CHECK_FALSE(seesText("Enter a valid website domain or an http/https URL."));
    CHECK(qobject_cast<QLineEdit *>(widget("Website"))->text().isEmpty());
    picturesOfBothSizes("exclusions");
    click("Done");
    CHECK_FALSE(store().sheets.showExclusions());
    CHECK(seesText("Private by design. Stored locally.")); // The settings are still there.
    click("Done");

    const QUuid project = *store().projects.createProject("Thesis");
    const auto saved = blockOn(store().capture.saveMoment({.projectID = project}));
    REQUIRE(saved);
    CHECK(store().library.checkpoint(*saved)->apps == QList<SavedApp>{{"org.editor", "Editor"}});
    CHECK(memory.requests.last().excludedAppIDs == QSet<QString>{"org.chat", "org.safe"});
}

TEST_CASE_FIXTURE(SettingsFixture, "what is excluded can be allowed again, also by keys alone and among many")
{
    openWindow();
    for (int i = 0; i < 300; ++i)
        store().rules.excludeDomain(QString("site%1.example").arg(i));
    store().rules.excludeApp({"org.editor", "Editor"});
    store().sheets.open(&OpenSheets::showSettings);
    store().sheets.open(&OpenSheets::showExclusions);
    settle();
    CHECK(window->sheets().findChildren<QAbstractButton *>().size() < 60);
    click("Allow Editor again");
    CHECK(store().rules.exclusions().apps.isEmpty());
    CHECK(seesText("No apps excluded"));
    click("Undo");
    CHECK(store().rules.exclusions().apps == QList<SavedApp>{{"org.editor", "Editor"}});
    click("Allow Editor again");
    click("Allow site1.example again");
    CHECK_FALSE(store().rules.exclusions().domains.contains("site1.example"));
    QListView *const websites = list("Excluded websites");
    websites->setFocus();
    press(Qt::Key_End);
    CHECK(findButton("Allow site299.example again"));
    press(Qt::Key_Delete);
    CHECK_FALSE(store().rules.exclusions().domains.contains("site299.example"));
    CHECK(websites->hasFocus());
    picture("exclusions-many");
    CHECK(seesText("site299.example is no longer excluded"));
    click("Undo");
    CHECK(store().rules.exclusions().domains.contains("site299.example"));
    CHECK_FALSE(findButton("Undo"));
}

TEST_CASE_FIXTURE(SettingsFixture, "exclusions are shown and stay as they are while a session is recorded")
{
    store().drafts.setDraftProjectID(store().projects.createProject("Thesis").id);
    store().rules.excludeDomain("example.com");
    openSettings();
    click(u"Capture exclusions…"_qs);
    CHECK(findButton("Allow again"));
    blockOn(store().form.captureMoment("", "", CaptureKind::Session));
    settle();
    CHECK(seesText("Finish the recording before changing exclusions."));
    CHECK_FALSE(findButton("Allow again"));
    CHECK_FALSE(field("Website")->isEnabled());
    QListView *const websites = list("Excluded websites");
    CHECK(websites->model()->index(0, 0).data().toString() == "example.com");
    websites->setFocus();
    websites->setCurrentIndex(websites->model()->index(0, 0));
    press(Qt::Key_Delete);
    CHECK(store().rules.exclusions().domains == QStringList{"example.com"});
    blockOn(store().sessions.stop());
    settle();
    CHECK(findButton("Allow again"));
    CHECK_FALSE(seesText("Finish the recording before changing exclusions."));
}

TEST_CASE_FIXTURE(SettingsFixture, "a bug report becomes a draft, or says why not and can be copied")
{
    openSettings();
    click("Report a bug");
    CHECK(isOff("Open email draft"));
    CHECK(isOff("Copy report"));
    picturesOfBothSizes("bug-report-empty");
    fill("Short summary", "Stuck & slow");
    fill("What went wrong?", "It stays at 90%");
    memory.hasMailProgram = false;
    picturesOfBothSizes("bug-report");
    click("Open email draft");
    CHECK(seesText("Your email app could not be opened. Use Copy report and send it manually. The address is " +
                   Endpoints::supportAddress() + '.'));
    picture("bug-report-failed");
    click("OK");
    click("Copy report");
    CHECK(findButton("Copied"));
    CHECK(QApplication::clipboard()->text().startsWith(
        "Subject: Ardeno bug: Stuck & slow\n\nWhat happened:\nIt stays at 90%\n\n"));
    picture("bug-report-copied");
    fill("Steps to reproduce (optional)", "1. Save");
    CHECK(findButton("Copy report")); // What was copied lacks the steps.
    memory.hasMailProgram = true;
    click("Open email draft");
    REQUIRE(memory.mailDrafts.size() == 1);
    CHECK(QUrlQuery(memory.mailDrafts.first()).queryItemValue("body", QUrl::FullyDecoded).contains("1. Save"));
    CHECK(seesText("Private by design. Stored locally."));
    click("Email support");
    CHECK(memory.mailDrafts.last().path() == Endpoints::supportAddress());
}

TEST_CASE_FIXTURE(SettingsFixture,
                  "a report is copied although another program holds the clipboard and does not answer")
{
    openSettings();
    click("Report a bug");
    fill("Short summary", "Stuck");
    fill("What went wrong?", "It hangs");
    const std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t *)> holder(xcb_connect(nullptr, nullptr),
                                                                                 xcb_disconnect);
    const xcb_screen_t *const screen = xcb_setup_roots_iterator(xcb_get_setup(holder.get())).data;
    const xcb_window_t owner = xcb_generate_id(holder.get());
    xcb_create_window(holder.get(), 0, owner, screen->root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0, 0, nullptr);
    constexpr std::string_view name = "CLIPBOARD";
    const std::unique_ptr<xcb_intern_atom_reply_t, void (*)(void *)> atom(
        xcb_intern_atom_reply(holder.get(), xcb_intern_atom(holder.get(), 0, name.size(), name.data()), nullptr),
        std::free);
    REQUIRE(atom);
    xcb_set_selection_owner(holder.get(), owner, atom->atom, XCB_CURRENT_TIME);
    xcb_flush(holder.get());
    REQUIRE(eventually([] { return !QApplication::clipboard()->ownsClipboard(); }));
    click("Copy report");
    CHECK(findButton("Copied"));
    CHECK(QApplication::clipboard()->text().contains("It hangs"));
}

TEST_CASE_FIXTURE(SettingsFixture, "the tab key shows what it reaches")
{
    openSettings();
    window->resize(960, 690);
    settle();
    const auto isSeen = [] {
        const QWidget *const control = QApplication::focusWidget();
        return control && control->visibleRegion().boundingRect().height() == control->height();
    };
    for (int i = 0; i < 20; ++i) {
        press(Qt::Key_Tab);
        CAPTURE(QApplication::focusWidget()->accessibleName());
        CHECK(isSeen());
    }
}

TEST_CASE_FIXTURE(SettingsFixture, "a checkpoint's details are saved as written, or not at all")
{
    const QUuid thesis = openProject();
    const QUuid website = *store().projects.createProject("Client website & shop");
    Checkpoint checkpoint = saveCheckpoint(thesis, "Evaluation", 1000);
    checkpoint.objective = u"• one\u00a0two\n\n  three"_qs;
    REQUIRE(store().editing.save(checkpoint));
    settle();
    const auto openDetails = [this] {
        click(u"Checkpoint details…"_qs);
        REQUIRE(findButton("Save context"));
    };
    openDetails();
    fill("Checkpoint title", "Something else");
    click("Cancel");
    CHECK(store().library.checkpoint(checkpoint.id)->title == "Evaluation");

    openDetails();
    picturesOfBothSizes("edit");
    fill("Your next small step", "Plot");
    press(Qt::Key_Return); // Of the text, not of the sheet.
    type("it");
    click("Project: Thesis");
    choose("Client website && shop");
    click("Save context");
    const Checkpoint saved = *store().library.checkpoint(checkpoint.id);
    CHECK(saved.nextStep == "Plot\nit");
    CHECK(saved.objective == checkpoint.objective);
    CHECK(saved.title == "Evaluation");
    CHECK(saved.projectID == website);
    CHECK(store().navigation.selectedProject()->id == website);

    settle();
    openDetails();
    fill("Checkpoint title", "Kept");
    breakLibrary();
    click("Save context");
    CHECK(seesText("Something needs attention"));
    click("OK");
    CHECK(qobject_cast<QLineEdit *>(field("Checkpoint title"))->text() == "Kept");
    CHECK(store().library.checkpoint(checkpoint.id)->title == "Evaluation");
}
