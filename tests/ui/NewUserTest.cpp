// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/RunningWindow.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QImage>
#include <QTest>

using namespace ardeno;

namespace {

struct NewUser : RunningWindow {
    // Stands where the desktop's dialogs would be, and has none: those of the program are the same on every machine.
    QDBusConnection withoutPortal = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "without-portal");

    NewUser()
    {
        const auto reply = withoutPortal.interface()->registerService("org.freedesktop.portal.Desktop",
                                                                      QDBusConnectionInterface::ReplaceExistingService);
        REQUIRE(reply.value() == QDBusConnectionInterface::ServiceRegistered);
    }

    ~NewUser() { QDBusConnection::disconnectFromBus("without-portal"); }

    QJsonObject checkpoint(int at = 0) const { return stored("checkpoints").at(at).toObject(); }

    void look(const char *screen) const
    {
        CAPTURE(screen);
        CHECK(reader->unnamed() == QStringList());
        picture(QString("new-user-") + screen);
    }

    void exploreSample() const
    {
        REQUIRE(sees("Portfolio redesign"));
        CHECK(sees("A GLIMPSE OF YOUR NEXT RETURN"));
        look("1-sample");
        click("Refine the navigation on mobile.");
        CHECK(sees("Choosing the layout"));
        CHECK_FALSE(QFile::exists(libraryPath()));
    }

    void makeProject(const QString &name) const
    {
        click("New project");
        REQUIRE(sees("Project name"));
        type(name);
        key("Return");
        REQUIRE(eventually([&] { return storedNames().contains(name); }));
        CHECK(sees("Your project is ready"));
    }

    void saveCheckpoint(const char *buttonName, int countAfter) const
    {
        click(buttonName);
        REQUIRE(sees("Save a checkpoint."));
        click("Save checkpoint"); // Of the form.
        REQUIRE(eventually([&] { return stored("checkpoints").size() == countAfter; }));
        CHECK(sees("Checkpoint saved."));
    }

    void saveFirst() const
    {
        saveCheckpoint("Save first checkpoint", 1);
        CHECK(sees("1 saved"));
        CHECK((seesNow("Saved screenshot") || seesNow("Expand saved screenshot")));
        CHECK(QImage(checkpoint().value("screenshot").toString()).size() == QSize(1920, 1080));
        look("2-checkpoint");
    }

    void writeList() const
    {
        click("Not now"); // What the window asks about news.
        click("Your next small step");
        type("milk");
        key("Return");
        type("eggs");
        key("Escape");
        REQUIRE(eventually([this] { return checkpoint().value("nextStep").toString() == u"• milk\n• eggs"_qs; }));
        CHECK(sees("milk")); // In the timeline.
        place("Your next small step");
        look("3-quick-list");
    }

    void search() const
    {
        key("ctrl+f");
        type("gard");
        CHECK(eventually([this] { return seesNow("Garden") && !seesNow("Thesis, 1 checkpoint"); }));
        look("4-search");
        key("Escape");
        CHECK(sees("Thesis, 1 checkpoint"));
    }

    void block() const
    {
        click("Mark blocked…");
        REQUIRE(sees("Waiting for…"));
        type("Approval");
        key("Return");
        CHECK(sees("Blocked"));
        look("6-blocked");
        click("Mark active");
        CHECK(sees("Active"));
    }

    void archive() const
    {
        click("Release", 3);
        chooseEntry(2);
        CHECK(eventually([this] { return !seesNow("Release, 0 checkpoints"); }));
        click("All projects");
        click("Show archived");
        CHECK(sees("Archived projects"));
        look("7-archived");
        click("Actions for Release");
        chooseEntry(2);
        CHECK(sees("No archived projects."));
        click("Show archived");
    }

    void changeImage() const
    {
        QImage image(320, 200, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        REQUIRE(image.save(home.filePath("photo.png")));
        click("Thesis, 1 checkpoint");
        click("Replace image…");
        REQUIRE(eventually([] { return outputOf("wmctrl", {"-l"}).contains("Choose an image"); }));
        type(home.filePath("photo.png"));
        key("Return");
        CHECK(sees("Image added. A copy is saved with this checkpoint."));
        CHECK(QImage(checkpoint().value("screenshot").toString()).size() == QSize(320, 200));
        look("8-image");
        click("Remove");
        CHECK(sees("No screenshot saved"));
        CHECK(sees("Add image…"));
        CHECK_FALSE(checkpoint().contains("screenshot"));
    }

    void removeThings() const
    {
        saveCheckpoint("Save checkpoint", 2);
        key("ctrl+Delete");
        REQUIRE(sees("Delete this checkpoint and its local recording?"));
        look("9-delete");
        QTest::qWait(600); // It is read first.
        key("Return");     // Which cancels.
        CHECK(eventually([this] { return seesNow("All projects"); }));
        CHECK(stored("checkpoints").size() == 2);
        key("ctrl+Delete");
        click("Delete checkpoint");
        CHECK(eventually([this] { return stored("checkpoints").size() == 1; }));
        click("Release", 3);
        chooseEntry(3);
        click("Delete project");
        CHECK(eventually([this] { return !storedNames().contains("Release"); }));
    }
};

} // namespace

TEST_CASE_FIXTURE(NewUser, "a new user explores, saves, writes, orders, blocks, archives and deletes, and all is kept")
{
    open();
    exploreSample();
    makeProject("Thesis");
    CHECK_FALSE(seesNow("Portfolio redesign"));
    saveFirst();
    writeList();
    makeProject("Garden");
    makeProject("Release");
    search();
    click("Thesis, 1 checkpoint");
    drag("Release, 0 checkpoints", "Thesis, 1 checkpoint");
    CHECK(eventually([this] { return storedNames() == QStringList{"Release", "Thesis", "Garden"}; }));
    look("5-order");
    click("Thesis, 1 checkpoint");
    block();
    archive();
    changeImage();
    removeThings();
    close();

    open();
    CHECK(sees("Thesis, 1 checkpoint"));
    CHECK(sees("Garden, 0 checkpoints"));
    click("Thesis, 1 checkpoint");
    CHECK(sees("milk"));
    look("10-reopened");
    CHECK(storedNames() == QStringList{"Thesis", "Garden"});
    CHECK(checkpoint().value("nextStep").toString() == u"• milk\n• eggs"_qs);
}
