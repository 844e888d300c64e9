// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PngWriter.h"
#include "support/BlockOn.h"
#include "tests/faults/Faults.h"
#include "tests/store/StoreFixture.h"
#include "tests/support/Children.h"
#include "json/Json.h"

#include <sys/mman.h>

#include <algorithm>
#include <cerrno>
#include <functional>

using namespace ardeno;

namespace {

// A library with media, and processes that change it while something goes wrong.
struct MediaFixture : StoreFixture {
    const QUuid project = QUuid::createUuid();
    const QUuid first = QUuid::createUuid();
    const QUuid second = QUuid::createUuid();
    const QString image = home.filePath("image.png");
    const QByteArray picture = PngWriter::encoded({2, 2}, QByteArray(16, '\x40'));
    // How many calls a whole change makes; shared with the children.
    int *calls =
        static_cast<int *>(::mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));

    QByteArray library;
    const QUuid session = QUuid::createUuid();
    bool isCutShort = false; // There is something to resolve, which the change itself then begins with.

    MediaFixture()
    {
        memory.displays.clear();
        memory.addDisplay(1, {0, 0, 64, 48});
        writeFile(image, picture);
        QDir().mkpath(root());
        WorkspaceLibrary two{.projects = {{.id = project, .name = "Project"}}};
        for (const QUuid &id : {first, second})
            two.checkpoints.append({.id = id, .title = "One", .projectID = project, .screenshot = pictureOf(id)});
        CheckpointRepository(root()).saveLibrary(two);
        library = fileBytes(libraryPath());
    }

    ~MediaFixture() { ::munmap(calls, sizeof(int)); }

    QString pictureOf(const QUuid &id) const { return root() + '/' + uuidText(id) + "/snapshot.png"; }

    void lay()
    {
        opened.reset();
        QDir(root()).removeRecursively();
        writeFile(libraryPath(), library);
        for (const QUuid &id : {first, second})
            writeFile(pictureOf(id), picture);
        if (isCutShort)
            layLeftovers();
    }

    // A session, a deletion, a removal and a capture that nobody finished.
    void layLeftovers()
    {
        const auto text = [](const QUuid &id) { return uuidText(id); };
        const QString recording = root() + "/.saving-" + text(session);
        writeFile(recording + "/session.json", json::encode(Checkpoint{.title = "session"}));
        writeFile(recording + "/snapshot.png", picture);
        writeFile(recording + "/session.mp4", QByteArray("\0\0\0\bmoof\0\0\0\bmdat\0\0\0\xffmoof", 24));
        const QString deletion = root() + "/.deleting-" + text(project) + '/';
        writeFile(deletion + text(QUuid::createUuid()) + "/snapshot.png", picture);
        QDir().rename(root() + '/' + text(first), deletion + text(first));
        QFile::rename(pictureOf(second), root() + '/' + text(second) + "/.snapshot.png.removing");
        writeFile(root() + "/.saving-" + text(QUuid::createUuid()) + "/snapshot.png", picture);
    }

    // The status of a process that makes the change with such a fault; 2: its message is not true.
    int change(const std::function<void()> &work, faults::Plan plan)
    {
        lay();
        plan.folder = QFile::encodeName(root());
        Child child([&](const Child::Signal &ready) {
            ready();
            if (!isCutShort)
                reopen();
            faults::begin(plan);
            work();
            *calls = faults::calls();
            faults::begin({});
            ::_exit(isSaid() ? 0 : 2);
        });
        return child.wait();
    }

    // Whether the message names what a deletion has left, and says only then that nothing was removed.
    bool isSaid()
    {
        const QString message = store().messages.error().value_or(QString());
        const QStringList left = QDir(root()).entryList({".deleting-*"}, QDir::Dirs | QDir::Hidden);
        const bool isNamed = std::all_of(left.begin(), left.end(), [&](const QString &name) {
            return list(root() + '/' + name).isEmpty() || message.contains(name);
        });
        const Checkpoint *const changed = store().library.checkpoint(first);
        return isNamed && (!message.startsWith("Could not remove the screenshot") || (changed && changed->screenshot));
    }

    // With the fault at every call, one after the other.
    void attack(const std::function<void()> &work, faults::Plan plan)
    {
        REQUIRE(change(work, {}) == 0);
        const int all = *calls;
        REQUIRE(all > 3);
        for (plan.call = 1; plan.call <= all; ++plan.call) {
            CAPTURE(plan.call);
            const int status = change(work, plan);
            CHECK(status == (plan.kind == faults::Plan::Kind::Kill ? -1 : 0));
            check();
        }
    }

    // After a start: every media folder has a record, every record its media, and nothing else is there.
    void check()
    {
        reopen();
        CHECK_FALSE(store().messages.error().has_value());
        QStringList expected = {"checkpoints.json"};
        for (const Checkpoint &checkpoint : store().library.checkpoints()) {
            expected << uuidText(checkpoint.id);
            const QString file = QFileInfo(checkpoint.screenshot.value_or(QString())).fileName();
            CHECK(list(mediaFolder(checkpoint)).join(' ') == file);
        }
        const Checkpoint *const recovered = store().library.checkpoint(session);
        CHECK((recovered && recovered->title == "session" && recovered->recording) == isCutShort);
        expected.sort();
        CHECK(list(root()) == expected);
    }

    static QStringList list(const QString &folder)
    {
        QStringList names =
            QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        names.removeAll("session.mp4"); // It stays also where nothing of it can be played.
        names.sort();
        return names;
    }
};

} // namespace

TEST_CASE_FIXTURE(MediaFixture, "wherever a change is cut short, the next start has all media that the library names")
{
    const CaptureRequest request{.projectID = project, .title = "new"};
    const auto save = [&] { blockOn(store().capture.saveMoment(request)); };
    const auto import = [&] { blockOn(store().screenshots.importScreenshot(image, first)); };
    const auto record = [&] {
        blockOn(store().capture.startSession(request));
        blockOn(store().sessions.stop());
    };
    const auto removeScreenshot = [&] { store().screenshots.removeScreenshot(first); };
    const auto bringBack = [&] {
        store().screenshots.removeScreenshot(first);
        store().removals.undoWorkspaceRemoval();
    };
    const auto replaceTwice = [&] {
        import();
        import();
        store().removals.undoWorkspaceRemoval();
        opened.reset();
        reopen();
    };
    const auto deleteCheckpoint = [&] { store().deletion.deleteCheckpoint(first); };
    const auto deleteProject = [&] { store().deletion.deleteProject(project); };
    using Kind = faults::Plan::Kind;
    for (const std::function<void()> &work : {std::function<void()>(save), std::function<void()>(record)})
        attack(work, {.kind = Kind::Kill});
    for (const std::function<void()> &work :
         {std::function<void()>(import), std::function<void()>(removeScreenshot), std::function<void()>(bringBack),
          std::function<void()>(replaceTwice), std::function<void()>(deleteCheckpoint),
          std::function<void()>(deleteProject)}) {
        attack(work, {.kind = Kind::Kill});
        attack(work, {.kind = Kind::Error, .error = EIO});
        attack(work, {.kind = Kind::LastingError, .error = EIO});
    }
    isCutShort = true;
    const auto start = [&] {
        reopen();
        opened.reset();
    };
    attack(start, {.kind = Kind::Kill});
    attack(start, {.kind = Kind::Error, .error = EIO});
    attack(start, {.kind = Kind::LastingError, .error = EIO});
}
