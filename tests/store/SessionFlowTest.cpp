// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BlockOn.h"
#include "tests/store/StoreFixture.h"
#include "json/Json.h"

#include <QStandardPaths>

using namespace ardeno;

namespace {

// A video of one fragment, cut in the middle of a second one.
QByteArray cutVideo(QByteArrayView tail = QByteArrayView("\0\0\0\x40"
                                                         "moofhalf",
                                                         12))
{
    const auto box = [](const char *type, const QByteArray &content) {
        return QByteArray("\0\0\0", 3) + char(8 + content.size()) + type + content;
    };
    return box("ftyp", "isom") + box("moov", "about") + box("moof", "where") + box("mdat", "pictures") +
           tail.toByteArray();
}

struct SessionFixture : StoreFixture {
    QUuid project = *store().projects.createProject("Thesis");

    // Starts a session through the form; the id of its checkpoint.
    QUuid startSession()
    {
        store().drafts.setDraftProjectID(project);
        blockOn(store().form.captureMoment(" Ablation ", "Re-run", CaptureKind::Session));
        REQUIRE_FALSE(store().messages.captureIssue().has_value());
        REQUIRE(store().recorder.recording());
        return QUuid(QFileInfo(QFileInfo(memory.recordings.last().path).path()).fileName());
    }

    QString folderOf(const QUuid &id) const { return root() + '/' + uuidText(id); }

    QString journalOf(const QUuid &id) const { return folderOf(id) + "/session.json"; }
};

} // namespace

TEST_CASE_FIXTURE(SessionFixture, "a session is in the library once it is stopped, with the workspace of its end")
{
    store().rules.excludeApp({"org.secret", "Secret"});
    store().drafts.setIncludeBrowser(true);
    memory.tabRecords["com.google.Chrome"] = u"1\u001f7\u001fhttps://a.example/\u001fA\u001e"_qs;
    const QUuid id = startSession();
    CHECK(store().messages.notice() == QString("Recording your main display. Stop any time from the menu bar."));
    CHECK(store().recorder.startedAt().has_value());
    CHECK(store().drafts.draftTitle().isEmpty());
    CHECK_FALSE(store().operations.busy());
    CHECK(store().library.checkpoints().isEmpty());
    CHECK(memory.recordings.last().excludedAppIDs == QSet<QString>{"org.secret"});
    CHECK_FALSE(store().rules.allowApp("org.secret"));
    CHECK(store().messages.error() == QString("Finish the recording before changing exclusions."));
    const auto pending = json::decode<Checkpoint>(fileBytes(journalOf(id)));
    CHECK(pending.title == "Ablation");
    CHECK(pending.apps.size() == 1);
    CHECK(pending.tabs.size() == 1);

    memory.addApplication("org.browser", "Browser", {0, 0, 500, 500});
    store().drafts.setIncludeBrowser(false);
    blockOn(store().sessions.stop());

    CHECK(store().messages.notice() ==
          QString("Recording stopped and checkpoint saved. Add a next step to make returning easier."));
    CHECK_FALSE(store().messages.error().has_value());
    CHECK_FALSE(store().recorder.recording());
    CHECK_FALSE(store().recorder.startedAt().has_value());
    CHECK_FALSE(QFile::exists(journalOf(id)));
    const Checkpoint saved = *reopen().navigation.selected();
    CHECK(saved.id == id);
    CHECK(saved.title == "Ablation");
    CHECK(saved.nextStep == "Re-run");
    CHECK(saved.apps.size() == 2);
    CHECK(saved.captureNote == "Workspace captured at the end of your session. Browser capture was off by then.");
    CHECK_MESSAGE(saved.tabs.isEmpty(), "those of the start are not of its end");
    CHECK(saved.recording == folderOf(id) + "/session.mp4");
    CHECK(memory.requests.size() == 2);
}

TEST_CASE_FIXTURE(SessionFixture, "only one session runs, and only a running one can be stopped")
{
    blockOn(store().sessions.stop());
    CHECK_FALSE(store().messages.notice().has_value());
    startSession();
    blockOn(store().form.captureMoment("Again", {}, CaptureKind::Session));
    CHECK(store().messages.captureIssue()->contains("already"));
    CHECK(memory.recordings.size() == 1);

    auto first = store().sessions.stop();
    blockOn(store().sessions.stop());
    blockOn(std::move(first));
    CHECK(store().library.checkpoints().size() == 1);
    blockOn(store().sessions.stop());
    CHECK(store().library.checkpoints().size() == 1);
}

TEST_CASE_FIXTURE(SessionFixture, "a session that cannot begin keeps the drafts and leaves nothing behind")
{
    memory.recordingFailure = Failure("POSIX", 28, "No space left on device.");
    store().drafts.setDraftProjectID(project);
    blockOn(store().form.captureMoment("Title", {}, CaptureKind::Session));
    CHECK(store().messages.captureIssue()->startsWith("Capture could not finish. Your draft is safe."));
    CHECK(store().messages.captureIssue()->endsWith("No space left on device."));
    CHECK(store().drafts.draftTitle() == "Title");
    CHECK_FALSE(store().recorder.recording());
    memory.recorder = Capability::unavailable("There is no display.");
    blockOn(store().form.captureMoment("Title", {}, CaptureKind::Session));
    CHECK(store().messages.captureIssue() == QString("There is no display."));
    CHECK(QDir(root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty());
    CHECK(reopen().library.checkpoints().isEmpty());
}

TEST_CASE_FIXTURE(SessionFixture, "a recording that breaks off is reported, and stopping still saves the checkpoint")
{
    const QUuid id = startSession();
    memory.recordingEvents.failed(Failure("POSIX", 28, "No space left on device."));
    QCoreApplication::processEvents();
    CHECK(store().messages.error() ==
          QString("Recording stopped unexpectedly: No space left on device. Use Stop & save "
                  "checkpoint to preserve the checkpoint."));
    CHECK(store().recorder.recording());

    memory.pictureFailure = Failure("Capture", 2, "The screenshot could not be created.");
    blockOn(store().sessions.stop());
    CHECK(store().messages.error() ==
          QString("The video could not be finalized. Your screenshot and workspace will still be "
                  "saved. No space left on device."));
    CHECK(store().messages.notice()->startsWith("Recording stopped and checkpoint saved."));
    const Checkpoint saved = *store().library.checkpoint(id);
    CHECK_FALSE(saved.recording.has_value());
    CHECK(fileBytes(*saved.screenshot).startsWith("\x89PNG"));
    CHECK(saved.captureNote ==
          "Workspace captured at the end of your session. The screenshot is from the start of the session. The "
          "recording broke off; what there is of it is kept with the media as session.mp4.");
}

TEST_CASE_FIXTURE(SessionFixture, "a session whose folder has been removed is saved all the same")
{
    const QUuid id = startSession();
    REQUIRE(QDir(folderOf(id)).removeRecursively());
    memory.recordingEvents.failed(Failure("POSIX", 2, "No such file or directory."));
    blockOn(store().sessions.stop());
    CHECK(store().library.checkpoint(id)->captureNote == "Workspace captured at the end of your session.");
    CHECK(QFile::exists(*store().library.checkpoint(id)->screenshot));
}

TEST_CASE_FIXTURE(SessionFixture, "a session that the library refuses is saved by the next start")
{
    const QUuid id = startSession();
    memory.addApplication("org.browser", "Browser", {0, 0, 500, 500});
    breakLibrary();
    blockOn(store().sessions.stop());
    CHECK(store().messages.error()->startsWith("Could not save this checkpoint: "));
    CHECK_FALSE(store().recorder.recording());
    REQUIRE(QFile::exists(journalOf(id)));

    mendLibrary();
    CHECK(reopen().library.checkpoint(id)->apps.size() == 2);
    CHECK(store().library.project(*store().library.checkpoint(id)->projectID)->name == "Thesis");
}

TEST_CASE_FIXTURE(SessionFixture, "a session that was cut short is saved by the next start, once, with what there is")
{
    const QUuid whole = startSession();
    writeFile(folderOf(whole) + "/session.mp4", cutVideo());
    opened.reset(); // As after a crash: nobody has stopped it.
    const QUuid empty = QUuid::createUuid();
    Checkpoint session{.title = "Second", .projectID = project};
    session.screenshot = "/elsewhere/snapshot.png";
    writeFile(journalOf(empty), json::encode(session));
    writeFile(folderOf(empty) + "/session.mp4", cutVideo().first(30));

    reopen();
    const QString said =
        u"Your work session “%1” was interrupted. Its checkpoint has been saved with what was recorded."_qs;
    CHECK(store().messages.sentences().size() == 2);
    CHECK(store().messages.sentences().contains(said.arg("Ablation")));
    CHECK(store().messages.sentences().contains(said.arg("Second")));
    REQUIRE(store().library.checkpoints().size() == 2);
    CHECK(store().library.checkpoint(whole)->title == "Ablation");
    CHECK(store().library.checkpoint(whole)->recording == folderOf(whole) + "/session.mp4");
    CHECK(store().library.checkpoint(whole)->captureNote.contains("start of your session"));
    CHECK(fileBytes(folderOf(whole) + "/session.mp4") == cutVideo({}));
    CHECK_FALSE(store().library.checkpoint(empty)->recording.has_value());
    CHECK_FALSE(store().library.checkpoint(empty)->screenshot.has_value());
    CHECK_FALSE(QFile::exists(journalOf(whole)));
    CHECK(reopen().library.checkpoints().size() == 2);
    CHECK(store().messages.sentences().isEmpty());
}

TEST_CASE_FIXTURE(SessionFixture, "a journal that cannot be read loses no video")
{
    const QUuid id = startSession();
    writeFile(folderOf(id) + "/session.mp4", cutVideo());
    opened.reset();
    const QByteArray journal = fileBytes(journalOf(id));
    writeFile(journalOf(id), journal.first(journal.size() / 2));

    CHECK(reopen().messages.sentences().first().contains("Recovered work session"));
    const Checkpoint *const saved = store().library.checkpoint(id);
    REQUIRE(saved);
    CHECK(saved->recording.has_value());
    CHECK(saved->screenshot.has_value());
    CHECK(store().library.project(*saved->projectID));
}

TEST_CASE_FIXTURE(SessionFixture,
                  "interrupted sessions stay where they are while the library cannot be read or written")
{
    const QUuid id = startSession();
    opened.reset();
    const QByteArray library = fileBytes(libraryPath());
    writeFile(libraryPath(), "{");
    CHECK(reopen().messages.error()->startsWith("Your saved checkpoints could not be read."));
    CHECK(QFile::exists(journalOf(id)));
    CHECK(fileBytes(libraryPath()) == "{");
    writeFile(libraryPath(), library);
    CHECK(reopen().library.checkpoint(id));
}
