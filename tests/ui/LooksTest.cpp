// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/WindowFixture.h"

#include <QImage>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace ardeno;

namespace {

// A screenshot with something on it.
QImage drawnScreen()
{
    QImage image(1920, 1080, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient background(0, 0, 1920, 1080);
    background.setColorAt(0, QColor(60, 88, 140));
    background.setColorAt(1, QColor(140, 150, 190));
    painter.fillRect(image.rect(), background);
    painter.fillRect(QRect(80, 70, 900, 620), Qt::white);
    painter.fillRect(QRect(1060, 160, 740, 480), QColor(30, 32, 40));
    return image;
}

struct LooksFixture : WindowFixture {
    QUuid thesis;

    void fill()
    {
        hasSheets = true;
        openWindow();
        thesis = *store().projects.createProject("Thesis");
        const QUuid website = *store().projects.createProject("Client website");
        store().projects.createProject("Ardeno release");
        store().projects.setProjectBlocker(website, "Waiting for the revised quote");
        const double now = Date::now().seconds;
        saveCheckpoint(website, "Start", now - 90'000);
        saveCheckpoint(thesis, "Thesis", now - 200'000);
        saveCheckpoint(thesis, "Compare both baselines", now - 86'400);
        Checkpoint latest = saveCheckpoint(thesis, "Evaluation chapter", now - 60);
        latest.nextStep = u"• Re-run the ablation with seed 7\n• Plot the variance"_qs;
        latest.objective = "Both baselines run; the ablation with seed 7 diverges after epoch 3.";
        memory.installed = {{"org.editor", "Text Editor", "accessories-text-editor"},
                            {"firefox-esr", "Firefox", "firefox-esr"},
                            {"files", "Files", "system-file-manager"}};
        latest.apps = {{"org.editor", "Text Editor"}, {"files", "Files"}, {"sketchpad", "Sketchpad"}};
        latest.tabs = {
            {.title = u"Ablation results — lab wiki"_qs, .url = "https://wiki.example.org/ablation"},
            {.title = "Seeds and variance", .url = "https://example.org/papers/seeds", .browserName = "Firefox"},
            {.title = u"Ablation results — lab wiki"_qs, .url = "https://wiki.example.org/ablation"},
        };
        latest.windows = QList<SavedWindow>{SavedWindow{.appID = "org.editor",
                                                        .appName = "Text Editor",
                                                        .title = "notes.txt",
                                                        .frame = {0, 0, 800, 600},
                                                        .displayName = "Built-in display"}};
        REQUIRE(drawnScreen().save(*latest.screenshot));
        REQUIRE(store().editing.save(latest));
        store().messages.confirm("Checkpoint saved.");
        settle();
    }

    void showSheets(const QString &suffix)
    {
        press(Qt::Key_S, Qt::ControlModifier);
        pictures("capture" + suffix);
        memory.screenAccess = false;
        store().screenAccess.refreshScreenAccess();
        settle();
        pictures("capture-access" + suffix);
        memory.screenAccess = true;
        press(Qt::Key_Escape);
        store().sheets.open(&OpenSheets::showRestore);
        REQUIRE(eventually([this] { return findButton("Open 3 missing items") != nullptr; }));
        pictures("restore" + suffix);
        press(Qt::Key_Escape);
    }
};

} // namespace

TEST_CASE_FIXTURE(LooksFixture, "no text is cut on any screen, also in the narrowest window")
{
    fill();
    pictures("detail");
    window->resize(960, 690);
    settle();
    pictures("detail-narrow");
    auto *const page = window->findChild<QScrollArea *>();
    REQUIRE(page);
    page->verticalScrollBar()->setValue(page->verticalScrollBar()->maximum());
    settle();
    pictures("notes");
    click("Show 1 saved window");
    page->verticalScrollBar()->setValue(page->verticalScrollBar()->maximum());
    settle();
    pictures("items-narrow");
    showSheets("-narrow");
    store().navigation.showProjects();
    settle();
    pictures("overview-narrow");
    window->resize(1170, 790);
    settle();
    pictures("overview");
    store().navigation.selectProject(thesis);
    settle();
    showSheets({});
    store().sheets.open(&OpenSheets::showNewProject);
    settle();
    pictures("sheet");
}

TEST_CASE_FIXTURE(LooksFixture, "the next step is seen at once, and what belongs together stands on one line")
{
    fill();
    store().messages.dismissNotice();
    settle();
    const auto bottomOf = [this](const char *name) {
        QWidget *const found = widget(name);
        REQUIRE(found);
        return found->mapTo(window.get(), QPoint(0, found->fontMetrics().height())).y();
    };
    QWidget *const screenshot = button("Saved screenshot");
    for (const int height : {790, 1000}) {
        window->resize(1170, height);
        settle();
        REQUIRE(eventually([&] { return screenshot->height() >= 120; }));
        CAPTURE(height);
        CHECK(bottomOf("Where you left off") < height);
        CHECK(bottomOf("Your next small step") < height);
    }
    CHECK(screenshot->height() >= 250);
    picture("detail-tall");
    window->resize(1170, 790);
    settle();
    picture("detail-default");
    const auto topOf = [this](const char *name) { return list(name)->mapTo(window.get(), QPoint()).y(); };
    CHECK(topOf("Apps") == topOf("Browser tabs"));
}

TEST_CASE_FIXTURE(LooksFixture, "a card of the overview is one button, with the newest picture")
{
    fill();
    // Of the picture's background, which is seen between its windows.
    const auto hasPicture = [](QWidget *shown, const QPoint &corner, const QSize &size) {
        const QPoint between = corner + QPoint(size.width() * 53 / 100, size.height() / 2);
        const QColor background = shown->grab(QRect(between, QSize(1, 1))).toImage().pixelColor(0, 0);
        return background.blue() > background.red() + 30;
    };
    QListView *const history = list("Checkpoint history");
    CHECK(history->model()
              ->index(0, 0)
              .data(Qt::AccessibleTextRole)
              .toString()
              .startsWith("Re-run the ablation with seed 7, Evaluation chapter"));
    CHECK(eventually([&] {
        const QRect tile = history->visualRect(history->model()->index(0, 0));
        return hasPicture(history->viewport(), tile.topLeft() + QPoint(9, 11), {72, 40});
    }));
    store().navigation.showProjects();
    settle();
    QAbstractButton *card = button("Open project Thesis");
    CHECK(card->accessibleDescription().contains("Re-run the ablation with seed 7"));
    CHECK(eventually([&] { return hasPicture(card, {14, 14}, {136, 78}); }));
    picture("overview-pictures");
    QTest::mouseClick(card, Qt::LeftButton, Qt::NoModifier, QPoint(card->width() - 60, card->height() - 30));
    settle();
    CHECK(store().navigation.selectedProjectID() == thesis);
    store().navigation.showProjects();
    settle();
    card = button("Open project Thesis");
    card->setFocus();
    press(Qt::Key_Return);
    CHECK(store().navigation.selectedProjectID() == thesis);
}

TEST_CASE_FIXTURE(LooksFixture, "what is written from right to left stands and ends there")
{
    openWindow();
    window->resize(960, 690);
    // Bullets stand where a line begins: at the right in these.
    const QUuid right = *store().projects.createProject(u"פרויקט הגמר 🎓"_qs);
    saveCheckpoint(right, u"الفصل الأول 🚀"_qs, Date::now().seconds - 86'400);
    Checkpoint foreign = saveCheckpoint(right, u"פרק ההערכה"_qs, Date::now().seconds - 60);
    foreign.nextStep = u"• להריץ שוב את הניסוי\n• 😀 لرسم التباين"_qs;
    foreign.objective = u"🧪 שני קווי הבסיס רצים."_qs;
    REQUIRE(store().editing.save(foreign));
    store().navigation.selectCheckpoint(foreign.id);
    settle();
    pictures("foreign-writing");
}

TEST_CASE_FIXTURE(LooksFixture, "the number of widgets does not grow with that of checkpoints and projects")
{
    {
        WorkspaceLibrary library;
        for (int i = 0; i < 2000; ++i)
            library.projects.append({.name = QString("Project %1").arg(i)});
        for (int i = 0; i < 10'000; ++i)
            library.checkpoints.append({.title = QString("Checkpoint %1").arg(i),
                                        .projectID = library.projects.first().id,
                                        .createdAt = {double(i)}});
        CheckpointRepository(root()).saveLibrary(library);
    }
    openWindow();
    CHECK(seesText("10000 saved"));
    CHECK(list("Checkpoint history")->model()->rowCount() == 10'000);
    picture("thousands");
    click("Manage checkpoints");
    press(Qt::Key_End);
    CHECK(seesText("Selected: Checkpoint 0"));
    picture("thousands-managed");
    press(Qt::Key_Escape);
    click("All projects");
    CHECK(list("Projects")->model()->rowCount() == 2000);
    CHECK(window->findChildren<QWidget *>().size() < 400);
    picture("thousands-overview");
}
