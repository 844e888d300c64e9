// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/store/SavedFixture.h"

using namespace ardeno;

namespace {

struct EditingFixture : SavedFixture {
    SavedTab tab(const QString &url) const { return {.title = url, .url = url, .browserID = "com.google.Chrome"}; }

    // What Chrome has open.
    void openTabs(const QStringList &urls)
    {
        QString records;
        for (const QString &url : urls)
            records += QStringList{"1", "window", url, "Page"}.join(QChar(31)) + QChar(30);
        memory.tabRecords["com.google.Chrome"] = records;
    }

    void giveItems(const QList<SavedApp> &apps, const QList<SavedTab> &tabs)
    {
        saved.apps = apps;
        saved.tabs = tabs;
        REQUIRE(store().editing.save(saved));
    }
};

} // namespace

TEST_CASE_FIXTURE(EditingFixture, "current tabs are added when their address is new, without excluded ones")
{
    giveItems({}, {tab("https://a.org/")});
    store().rules.excludeDomain("secret.org");
    openTabs({"https://a.org/", "https://b.org/", "https://www.secret.org/"});
    blockOn(store().workspace.addCurrentBrowserTabs(saved.id));
    CHECK(store().messages.notice() == "Added 1 current browser tab. Your screenshot is unchanged.");
    REQUIRE(now().tabs.size() == 2);
    CHECK(now().tabs[0] == saved.tabs[0]);
    CHECK(now().tabs[1].url == "https://b.org/");

    const QByteArray library = fileBytes(libraryPath());
    blockOn(store().workspace.addCurrentBrowserTabs(saved.id));
    CHECK(store().messages.notice() == "No new browser tabs to add.");
    CHECK_FALSE(store().messages.error().has_value());
    CHECK(fileBytes(libraryPath()) == library);

    openTabs({"https://c.org/", "https://d.org/"});
    memory.tabRecords["org.mozilla.firefox"] = QString();
    blockOn(store().workspace.addCurrentBrowserTabs(saved.id));
    CHECK_MESSAGE(now().tabs.size() == 4, "a browser that cannot be read keeps nobody else's tabs away");
    CHECK(store().messages.notice() == "Added 2 current browser tabs. Your screenshot is unchanged.");
    CHECK(store().messages.error().has_value());

    memory.tabRecords.clear();
    blockOn(store().workspace.addCurrentBrowserTabs(saved.id));
    CHECK(store().messages.error()->startsWith("No supported browser was open."));
    CHECK_FALSE(store().messages.notice().has_value());

    openTabs({"https://e.org/"});
    breakLibrary();
    blockOn(store().workspace.addCurrentBrowserTabs(saved.id));
    CHECK(store().messages.error()->startsWith("Could not save this checkpoint: "));
    CHECK(now().tabs.size() == 4);
}

TEST_CASE_FIXTURE(EditingFixture, "tabs that arrive after a checkpoint was changed or deleted undo neither")
{
    openTabs({"https://a.org/"});
    QCoro::Task<Outcome> adding = store().workspace.addCurrentBrowserTabs(saved.id);
    store().editing.updateNote(&Checkpoint::title, "renamed meanwhile", saved.id);
    blockOn(std::move(adding));
    CHECK(now().title == "renamed meanwhile");
    CHECK(now().tabs.size() == 1);

    openTabs({"https://b.org/"});
    adding = store().workspace.addCurrentBrowserTabs(saved.id);
    store().deletion.deleteCheckpoint(saved.id);
    blockOn(std::move(adding));
    CHECK(store().library.checkpoints().isEmpty());
}

TEST_CASE_FIXTURE(EditingFixture, "current window positions replace the saved ones, of saved applications alone")
{
    memory.addApplication("org.other", "Other", {0, 0, 10, 10});
    memory.addApplication("org.secret", "Secret", {0, 0, 10, 10}, "private");
    blockOn(store().workspace.addCurrentWindowLayout(saved.id));
    CHECK(store().messages.notice() == "No visible windows matched this checkpoint’s saved apps.");
    CHECK_FALSE(now().windows.has_value());

    giveItems({{"org.editor", "Editor"}, {"org.secret", "Secret"}}, {});
    store().rules.excludeApp({"org.secret", "Secret"});
    blockOn(store().workspace.addCurrentWindowLayout(saved.id));
    CHECK(store().messages.notice() == "Saved current positions for 1 window. The screenshot is unchanged.");
    REQUIRE(now().windows->size() == 1);
    CHECK(now().windows->first().frame == WindowRect{100, 100, 800, 600});
    CHECK(now().screenshot == saved.screenshot);
}

TEST_CASE_FIXTURE(EditingFixture, "what was removed comes back to its place, once")
{
    const QList<SavedTab> tabs = {tab("https://a.org/"), tab("https://b.org/"), tab("https://c.org/")};
    giveItems({{"org.editor", "Editor"}, {"org.viewer", "Viewer"}}, tabs);
    CHECK(store().workspace.removeTab(tabs[1], saved.id));
    CHECK(now().tabs == QList{tabs[0], tabs[2]});
    CHECK(store().removals.lastRemoval() == WorkspaceRemoval{saved.id, {tabs[1], 1}});
    store().removals.undoWorkspaceRemoval();
    CHECK(now().tabs == tabs);
    CHECK_FALSE(store().removals.lastRemoval().has_value());
    store().removals.undoWorkspaceRemoval();
    CHECK(now().tabs == tabs);

    // Only the last removal is remembered; its place may have gone.
    CHECK(store().workspace.removeApp(saved.apps[1], saved.id));
    Checkpoint fewer = now();
    fewer.apps.clear();
    REQUIRE(store().editing.save(fewer));
    store().removals.undoWorkspaceRemoval();
    CHECK(now().apps == QList{saved.apps[1]});

    CHECK_FALSE(store().workspace.removeApp(saved.apps[0], saved.id));
    breakLibrary();
    CHECK_FALSE(store().workspace.removeTab(tabs[0], saved.id));
    CHECK(now().tabs == tabs);
    CHECK_FALSE(store().removals.lastRemoval().has_value());
}

TEST_CASE_FIXTURE(EditingFixture, "window positions that were replaced come back")
{
    giveItems({{"org.editor", "Editor"}}, {});
    blockOn(store().workspace.addCurrentWindowLayout(saved.id));
    CHECK_MESSAGE(!store().removals.lastRemoval(), "there were none before");
    const std::optional<QList<SavedWindow>> first = now().windows;
    blockOn(store().workspace.addCurrentWindowLayout(saved.id));
    CHECK(now().windows != first);
    CHECK(store().removals.undoWorkspaceRemoval());
    CHECK(now().windows == first);
    CHECK_FALSE(store().messages.notice().has_value());
    CHECK_FALSE(store().removals.lastRemoval().has_value());
}
