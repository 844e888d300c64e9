// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/CheckpointRepository.h"
#include "tests/ui/RunningWindow.h"

using namespace ardeno;

namespace {

struct ProgramInput : RunningWindow {
    void openLibrary()
    {
        WorkspaceLibrary library{.checkpoints = {{.title = "Chapter", .projectID = QUuid::createUuid()}}};
        library.projects = {{.id = *library.checkpoints.first().projectID, .name = "Thesis"}};
        CheckpointRepository(root()).saveLibrary(library);
        open();
        REQUIRE(sees("Where you left off"));
    }

    QString storedNote() const { return stored("checkpoints").at(0).toObject().value("objective").toString(); }

    bool asks(const QString &question) const
    {
        const bool isAsking = sees(question);
        desktop_test::waitUntilRead();
        key("Return"); // What loses nothing.
        return isAsking && eventually([&] { return !seesNow(question); }) && program->state() == QProcess::Running;
    }
};

} // namespace

TEST_CASE_FIXTURE(ProgramInput, "quitting asks about a form that holds what was typed")
{
    openLibrary();
    key("ctrl+n");
    REQUIRE(sees("Project name"));
    type("Half a name");
    key("ctrl+q");
    CHECK(asks("Quit without saving?"));
    key("Escape");
    CHECK(asks("Discard what you typed?"));
    key("ctrl+q");
    REQUIRE(sees("Quit without saving?"));
    picture("quit-with-input");
    click("Quit without saving");
    CHECK(end(*program).status == 0);
}

TEST_CASE_FIXTURE(ProgramInput, "closing and quitting ask about a note that cannot be written, which is written later")
{
    openLibrary();
    REQUIRE(reader->focus("Where you left off"));
    REQUIRE(QFile::rename(libraryPath(), root() + "/moved"));
    REQUIRE(QDir().mkpath(libraryPath() + "/in-the-way"));
    type("precious");
    REQUIRE(sees("Something needs attention"));
    desktop_test::waitUntilRead();
    key("Return");
    outputOf("wmctrl", {"-i", "-c", window});
    CHECK(sees("A note is not saved yet"));
    key("Escape");
    key("ctrl+q");
    CHECK(asks("Quit without saving?"));
    REQUIRE(QDir(libraryPath()).removeRecursively());
    REQUIRE(QFile::rename(root() + "/moved", libraryPath()));
    CHECK(eventually([this] { return storedNote().contains("precious"); }));
    key("ctrl+q");
    CHECK(end(*program).status == 0);
}

TEST_CASE_FIXTURE(ProgramInput, "a program that is ended by the system keeps what stands in an open form")
{
    openLibrary();
    click("Checkpoint details…");
    REQUIRE(sees("Save context"));
    key("ctrl+a");
    type("A better title");
    close();
    CHECK(stored("checkpoints").at(0).toObject().value("title") == "Chapter");
    open();
    REQUIRE(sees("Ardeno was ended before this was saved. Save it now, or cancel to discard it."));
    picture("details-kept-program");
    click("Save context");
    CHECK(eventually([this] { return stored("checkpoints").at(0).toObject().value("title") == "A better title"; }));
    close();
}
