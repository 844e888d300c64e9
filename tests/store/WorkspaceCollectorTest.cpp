// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BlockOn.h"
#include "tests/store/StoreFixture.h"

using namespace ardeno;

TEST_CASE_FIXTURE(
    StoreFixture,
    "what is out of sight is saved, the note says what is saved by name alone, and neither tells of what is excluded")
{
    const QString windowClass = "window-class/";
    const auto hide = [this](const QString &id) {
        memory.addApplication(id, id.section('/', -1), {0, 0, 500, 500}, "hidden");
        memory.windows.last().isOnScreen = false;
        memory.windows.last().states = {"minimised"};
    };
    hide("org.secret");
    hide(windowClass + "Secret");
    for (const char *excluded : {"org.secret", "window-class/Secret"})
        store().rules.excludeApp({excluded, "Secret"});
    hide("org.second");
    memory.addApplication(windowClass + "Xmessage", "Xmessage", {0, 0, 500, 500});
    store().drafts.setDraftProjectName("Thesis");
    blockOn(store().form.captureMoment({}, {}, CaptureKind::Checkpoint));
    const QString named = " Not among the installed apps, so saved by the name of their windows: Xmessage.";
    CHECK(store().navigation.selected()->captureNote == "Open apps captured. Browser capture was off." + named);
    CHECK(store().navigation.selected()->windows->size() == 3);

    hide("org.third");
    store().drafts.setIncludeBrowser(true);
    memory.tabRecords["com.google.Chrome"] = QString(); // Runs and cannot be read.
    blockOn(store().form.captureMoment({}, {}, CaptureKind::Session));
    blockOn(store().sessions.stop());
    const QString note = store().navigation.selected()->captureNote;
    CHECK(note.startsWith(u"Workspace captured at the end of your session. Chrome tabs weren’t available."_qs));
    CHECK(note.endsWith(named));
    CHECK(store().navigation.selected()->apps.last().id == windowClass + "Xmessage");
}

TEST_CASE_FIXTURE(StoreFixture, "a rule made while something is captured holds for all of it")
{
    const QString chrome = "com.google.Chrome";
    memory.addApplication("org.secret", "Secret", {0, 0, 500, 500}, "hidden");
    memory.tabRecords[chrome] = u"1\u001f7\u001fhttps://bank.example/\u001fBank\u001e"_qs;
    store().drafts.setIncludeBrowser(true);
    store().drafts.setDraftProjectID(store().projects.createProject("Thesis").id);
    const SavedApp secret{"org.secret", "Secret"};
    REQUIRE(blockOn(store().form.captureMoment("All is shown", {}, CaptureKind::Checkpoint)));
    REQUIRE(store().navigation.selected()->apps.contains(secret));
    REQUIRE(store().navigation.selected()->tabs.size() == 1);

    memory.whileComposing = [&] {
        store().rules.excludeApp(secret);
        store().rules.excludeDomain("bank.example");
    };
    const auto isHidden = [&](const Checkpoint &checkpoint) {
        return !checkpoint.apps.contains(secret) && checkpoint.windows->size() == 1 && checkpoint.tabs.isEmpty() &&
               memory.requests.last().excludedAppIDs.contains("org.secret");
    };
    REQUIRE(blockOn(store().form.captureMoment("Hidden", {}, CaptureKind::Checkpoint)));
    CHECK(isHidden(*store().navigation.selected()));

    store().rules.allowApp("org.secret");
    memory.whileStarting = [&] {
        CHECK_FALSE(store().rules.allowApp("org.secret"));
        CHECK_FALSE(store().rules.excludeApp({"org.editor", "Editor"}));
    };
    REQUIRE(blockOn(store().form.captureMoment("Session", {}, CaptureKind::Session)));
    CHECK(memory.recordings.last().excludedAppIDs == store().rules.exclusions().appIDs());
    CHECK_MESSAGE(memory.recordings.last().excludedAppIDs == QSet<QString>{"org.secret"},
                  "made during the picture, before the recorder was asked");
    blockOn(store().sessions.stop());
    CHECK(isHidden(*store().navigation.selected()));
}

TEST_CASE_FIXTURE(StoreFixture, "tabs are kept with the checkpoint, except those of excluded browsers and websites")
{
    const auto record = [](const QString &url) { return u"1\u001f7\u001f%1\u001fA page\u001e"_qs.arg(url); };
    memory.tabRecords.insert("com.google.Chrome",
                             record("https://bank.example/account") + record("https://a.example/"));
    memory.tabRecords.insert("com.brave.Browser", record("https://b.example/"));
    store().rules.excludeDomain("bank.example");
    store().rules.excludeApp({"com.brave.Browser", "Brave"});
    store().drafts.setIncludeBrowser(true);
    store().drafts.setDraftProjectName("Thesis");

    blockOn(store().form.captureMoment("Title", {}, CaptureKind::Checkpoint));
    REQUIRE(store().navigation.selected());
    REQUIRE(store().navigation.selected()->tabs.size() == 1);
    CHECK(store().navigation.selected()->tabs.first().url == "https://a.example/");
    CHECK(store().navigation.selected()->captureNote == "Browser tabs and open apps captured.");
    CHECK(memory.browsersRead == QStringList{"com.google.Chrome"});
    CHECK_FALSE(fileBytes(libraryPath()).contains("bank.example"));

    memory.tabRecords.insert("com.google.Chrome", QString());
    blockOn(store().form.captureMoment("Again", {}, CaptureKind::Checkpoint));
    CHECK(store().navigation.selected()->tabs.isEmpty());
    CHECK(store().navigation.selected()->captureNote.startsWith("Chrome tabs weren’t available."));
    memory.tabRecords.clear();
    blockOn(store().form.captureMoment("Third", {}, CaptureKind::Checkpoint));
    CHECK(store().navigation.selected()->captureNote.startsWith("No supported browser was open."));
}
