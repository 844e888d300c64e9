// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/CheckpointRepository.h"
#include "tests/desktop/DesktopFile.h"
#include "tests/roads/Hand.h"
#include "tests/roads/SameLibrary.h"

#include <QDBusConnectionInterface>
#include <QImage>

using namespace ardeno;

namespace {

// Stands where the desktop's dialogs would be, and has none: those of the program are the same on every machine.
class WithoutPortal final {
public:
    WithoutPortal()
    {
        const auto reply = m_bus.interface()->registerService("org.freedesktop.portal.Desktop",
                                                              QDBusConnectionInterface::ReplaceExistingService);
        REQUIRE(reply.value() == QDBusConnectionInterface::ServiceRegistered);
    }

    ~WithoutPortal() { QDBusConnection::disconnectFromBus("without-portal"); }

private:
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "without-portal");
};

struct Road : RunningWindow {
    Hand *hand = nullptr;

    QJsonObject checkpoint(int at) const { return stored("checkpoints").at(at).toObject(); }

    bool storesCheckpoints(int count) const
    {
        return eventually([&] { return stored("checkpoints").size() == count; });
    }

    QJsonObject project(const QString &name) const
    {
        for (const QJsonValue &found : stored("projects")) {
            if (found.toObject().value("name") == name)
                return found.toObject();
        }
        return {};
    }

    void save(const QString &button, const QString &title, int countAfter) const
    {
        hand->press(button);
        REQUIRE(sees("Save a checkpoint."));
        hand->write("Checkpoint title (optional)", title);
        hand->write("Your next small step (optional)", "Read it aloud");
        hand->press("Save checkpoint");
        REQUIRE(storesCheckpoints(countAfter));
        REQUIRE(sees("Checkpoint saved."));
    }

    void archiveAndUndo(const QString &name) const
    {
        hand->chooseOf({"Projects", name}, "Archive project");
        REQUIRE(eventually([&] { return project(name).contains("archivedAt"); }));
        hand->undo();
        REQUIRE(eventually([&] { return !project(name).contains("archivedAt"); }));
    }

    void rename(const QString &name, const QString &another) const
    {
        hand->chooseOf({"Projects", name}, "Rename project…");
        REQUIRE(sees("Project name"));
        hand->write("Project name", another);
        hand->press("Rename");
        REQUIRE(eventually([&] { return storedNames().contains(another); }));
    }

    void deleteShown(int countAfter) const
    {
        hand->deleteCheckpoint();
        REQUIRE(sees("Delete this checkpoint and its local recording?"));
        hand->answer("Delete checkpoint");
        REQUIRE(storesCheckpoints(countAfter));
    }

    void writeNote(const QString &field, const QString &text) const
    {
        hand->write(field, text);
        hand->leave();
        REQUIRE(eventually([&] { return QJsonDocument(stored("checkpoints")).toJson().contains(text.toUtf8()); }));
    }
};

struct NewUserRoad : Road {
    void install() const
    {
        desktop_test::writeDesktopFile(home.filePath("data/applications"), "editor",
                                       "Name=Editor\nExec=xterm\nStartupWMClass=ArdenoRoad");
    }

    void begin() const
    {
        REQUIRE(sees("Portfolio redesign"));
        hand->press("New project");
        REQUIRE(sees("Project name"));
        hand->write("Project name", "Thesis");
        hand->press("Create project");
        REQUIRE(sees("Your project is ready"));
        save("Save first checkpoint", "Chapter one", 1);
        hand->press("Not now"); // What the window asks about news.
        writeNote("Where you left off", "Half of the outline");
    }

    void changeItems() const
    {
        hand->remove({"Apps", "Editor"}, "Remove Editor from this checkpoint");
        REQUIRE(eventually([this] { return checkpoint(0).value("apps").toArray().isEmpty(); }));
        hand->undo();
        REQUIRE(eventually([this] { return checkpoint(0).value("apps").toArray().size() == 1; }));
    }

    void changePicture() const
    {
        QImage image(320, 200, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        REQUIRE(image.save(home.filePath("photo.png")));
        hand->press("Replace image…");
        REQUIRE(eventually([] { return outputOf("wmctrl", {"-l"}).contains("Choose an image"); }));
        type(home.filePath("photo.png"));
        key("Return");
        REQUIRE(sees("Image added. A copy is saved with this checkpoint."));
        REQUIRE(eventually([this] { return outputOf("xdotool", {"getactivewindow"}).trimmed() == window; }));
    }

    void resume() const
    {
        hand->press("Review workspace");
        REQUIRE(sees("Ready to resume."));
        hand->press("Restore window positions");
        REQUIRE(eventually([this] {
            const auto all = reader->read();
            return std::any_of(all.begin(), all.end(), [](const ScreenReader::Control &control) {
                return control.name.startsWith("Workspace restored");
            });
        }));
    }

    void archive() const
    {
        archiveAndUndo("Thesis");
        hand->chooseOf({"Projects", "Thesis"}, "Archive project");
        REQUIRE(eventually([this] { return project("Thesis").contains("archivedAt"); }));
        hand->press("All projects");
        hand->press("Show archived");
        REQUIRE(sees("Archived projects"));
        hand->chooseAt("Actions for Thesis", "Unarchive project");
        REQUIRE(eventually([this] { return !project("Thesis").contains("archivedAt"); }));
        hand->press("Show archived");
        hand->open({"Projects", "Thesis"});
    }

    void configure() const
    {
        hand->press("Settings");
        REQUIRE(sees("Capture exclusions…"));
        hand->press("Include browser tabs");
        hand->press("Capture exclusions…");
        REQUIRE(sees("Exclude website"));
        hand->write("Website", "https://mail.example.com/inbox");
        hand->press("Exclude website");
        REQUIRE(sees("mail.example.com"));
        hand->press("Done");
        REQUIRE(sees("Check for updates"));
        hand->press("Done");
        REQUIRE(eventually([this] { return seesNow("All projects"); }));
    }

    QByteArray walk()
    {
        install();
        open();
        begin();
        changeItems();
        changePicture();
        save("Save checkpoint", "Chapter two", 2);
        resume();
        archive();
        rename("Thesis", "Dissertation");
        configure();
        deleteShown(1);
        key("ctrl+q");
        CHECK(end(*program).status == 0);
        return SameLibrary::of(root());
    }
};

const QString hebrew = u"פרויקט המחקר"_qs;
const QString arabic = u"مشروع البحث"_qs;
const QString german = u"Größenänderung"_qs;

struct HeavyUserRoad : Road {
    static constexpr int projectCount = 12;
    static constexpr int checkpointCount = 25; // Of each project.

    static QString nameOf(int project)
    {
        const QStringList names{
            german, hebrew, arabic, u"🚀 Launch plan"_qs,
            u"Ein außergewöhnlich langer Projektname, der in keiner Leiste Platz findet und doch lesbar bleibt"_qs};
        return names.value(project, QString("Project %1").arg(project + 1));
    }

    void writeLibrary() const
    {
        WorkspaceLibrary library;
        for (int number = 0; number < projectCount; ++number) {
            library.projects.append({.id = QUuid::createUuid(), .name = nameOf(number)});
            for (int at = checkpointCount; at >= 1; --at) {
                Checkpoint checkpoint{.title = QString("Step %1 of %2").arg(at).arg(nameOf(number).left(20)),
                                      .projectID = library.projects.last().id,
                                      .createdAt = {1e8 * at + number}};
                checkpoint.objective = u"• יעד\n• Ziel 🎯"_qs;
                checkpoint.apps = {{"gone.editor", "Editor"}, {"gone.viewer", u"عارض الصور"_qs}};
                checkpoint.tabs = {{.title = "First", .url = "https://one.example/"},
                                   {.title = u"Zweite Seite mit Größe"_qs, .url = "https://two.example/"}};
                library.checkpoints.append(checkpoint);
            }
        }
        CheckpointRepository(root()).saveLibrary(library);
    }

    static QString step(int at, const QString &project) { return QString("Step %1 of %2").arg(at).arg(project); }

    void find(const QString &text, const QString &shown) const
    {
        hand->write("Find a project", text);
        key("Return");
        REQUIRE(sees(shown));
        hand->clearSearch();
        REQUIRE(sees(nameOf(1)));
    }

    void changeCheckpoint() const
    {
        hand->open({"Checkpoint history", step(23, german)});
        REQUIRE(sees("Back to latest"));
        hand->write("Your next small step", "Zum Schluss alles vorlesen");
        hand->leave();
        hand->remove({"Browser tabs", "First"}, "Remove tab First from checkpoint");
        REQUIRE(sees("Removed First"));
        hand->undo();
        REQUIRE(eventually([this] { return !seesNow("Removed First"); }));
        hand->remove({"Apps", "Editor"}, "Remove Editor from this checkpoint");
        REQUIRE(sees("Removed Editor"));
        hand->press("Back to latest");
        REQUIRE(eventually([this] { return !seesNow("Back to latest"); }));
    }

    // To another project, with another title.
    void moveCheckpoint() const
    {
        hand->press("Checkpoint details…");
        REQUIRE(sees("Save context"));
        hand->write("Checkpoint title", "Umgezogen");
        hand->chooseAt("Project: " + german, arabic);
        hand->press("Save context");
        REQUIRE(eventually([this] { return QJsonDocument(stored("checkpoints")).toJson().contains("Umgezogen"); }));
    }

    void manage(const QString &project) const
    {
        hand->open({"Projects", project});
        hand->press("Manage checkpoints");
        REQUIRE(sees("Done"));
        hand->remove({"Checkpoints", step(24, project)}, "Delete selected checkpoint…");
        REQUIRE(sees("Delete this checkpoint?"));
        hand->answer("Delete checkpoint");
        REQUIRE(storesCheckpoints(projectCount * checkpointCount - 1));
        hand->press("Done");
    }

    void block(const QString &project) const
    {
        hand->chooseOf({"Projects", project}, "Mark blocked…");
        REQUIRE(sees("Waiting for…"));
        hand->write("Waiting for…", "Freigabe durch Müller");
        hand->press("Mark blocked");
        REQUIRE(eventually([&] { return this->project(project).contains("blockedReason"); }));
    }

    void order() const
    {
        const QStringList before = storedNames();
        hand->moveDown({"Projects", before.at(1)}, before.at(2));
        REQUIRE(eventually([&] { return storedNames().indexOf(before.at(1)) == 2; }));
    }

    void deleteProject(const QString &name, int countAfter) const
    {
        hand->chooseOf({"Projects", name}, "Delete project…");
        REQUIRE(sees("Delete project?"));
        hand->answer("Delete project");
        REQUIRE(storesCheckpoints(countAfter));
    }

    QByteArray walk()
    {
        writeLibrary();
        open();
        REQUIRE(sees("Manage checkpoints"));
        outputOf("wmctrl", {"-i", "-r", window, "-b", "add,maximized_vert,maximized_horz"});
        find(u"größenä"_qs, step(checkpointCount, german));
        changeCheckpoint();
        moveCheckpoint();
        manage(hebrew);
        block(arabic);
        order();
        archiveAndUndo(hebrew);
        rename(arabic, "Forschungsprojekt");
        deleteProject(nameOf(3), (projectCount - 1) * checkpointCount - 1);
        key("ctrl+q");
        CHECK(end(*program).status == 0);
        return SameLibrary::of(root());
    }
};

// Line by line, as long as there are as many.
QStringList differences(const QByteArray &one, const QByteArray &other)
{
    const QStringList lines = QString::fromUtf8(one).split('\n');
    const QStringList others = QString::fromUtf8(other).split('\n');
    QStringList found;
    for (qsizetype at = 0; at < std::max(lines.size(), others.size()); ++at) {
        if (lines.value(at) != others.value(at))
            found << lines.value(at).trimmed() + " | " + others.value(at).trimmed();
    }
    return found;
}

template <typename Walked>
void compareRoads()
{
    FocusWatch focus;
    Walked first;
    PointerHand pointer(first, focus);
    first.hand = &pointer;
    const QByteArray byPointer = first.walk();
    Walked second;
    KeysHand keys(second, focus);
    second.hand = &keys;
    CHECK(differences(second.walk(), byPointer) == QStringList());
}

} // namespace

TEST_CASE("a new user comes to the same library by the pointer and by keys alone")
{
    const WithoutPortal withoutPortal;
    desktop_test::Application editor("xterm", {"-class", "ArdenoRoad", "-T", "road", "-geometry", "40x8+1400+700"});
    REQUIRE(editor.waitForWindow("road") != 0);
    compareRoads<NewUserRoad>();
}

TEST_CASE("a heavy user comes to the same library by the pointer and by keys alone")
{
    desktop_test::outputOf("setxkbmap", {"de"}); // Who writes German has keys for it.
    compareRoads<HeavyUserRoad>();
}
