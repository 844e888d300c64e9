// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/application/ApplicationFixture.h"
#include "tests/application/SessionManager.h"

using namespace ardeno;
using desktop_test::eventually;
using desktop_test::outputOf;

namespace {

struct Logout : ApplicationFixture {
    SessionManager session;

    Logout() { environment.insert("SESSION_MANAGER", session.address()); }

    void startManaged()
    {
        startApplication({});
        REQUIRE(waitForWindow("Ardeno"));
        REQUIRE(eventually([this] { return session.isQuiet(); }));
    }

    SessionManager::Answer answerTo(SessionManager::Questions questions)
    {
        session.logOut(questions);
        REQUIRE(eventually([this] { return session.isQuiet(); }));
        return session.answer();
    }

    QString place() const { return outputOf("xdotool", {"getwindowgeometry", "--shell", window("Ardeno")}); }

    // Logs out and in again.
    void startAgain()
    {
        REQUIRE(answerTo(SessionManager::Questions::Any) == SessionManager::Answer::Ready);
        QStringList command = session.restartCommand();
        session.end();
        REQUIRE(waitForEnd());
        REQUIRE(command.takeFirst() == ARDENO_PROGRAM);
        startApplication(command);
    }
};

} // namespace

TEST_CASE_FIXTURE(Logout, "logging out is refused while a session is recorded; where nobody may be asked, it is saved")
{
    startManaged();
    REQUIRE(run({"record", "start", "--project", "Thesis"}).status == 0);
    CHECK(answerTo(SessionManager::Questions::Any) == SessionManager::Answer::Cancelled);
    picture("logout-refused");
    CHECK(isRunning());
    CHECK(checkpoints().isEmpty());

    CHECK(answerTo(SessionManager::Questions::None) == SessionManager::Answer::Ready);
    session.end();
    REQUIRE(eventually([this] { return !isRunning(); }));
    CHECK(end(*application).status == 0);
    REQUIRE(checkpoints().size() == 1);
    CHECK(QFile::exists(checkpoints().at(0).toObject().value("recording").toString()));
}

TEST_CASE_FIXTURE(Logout, "the next session has the window where it was, and none where it was closed")
{
    startManaged();
    outputOf("wmctrl", {"-r", "Ardeno", "-b", "add,maximized_vert,maximized_horz"});
    REQUIRE(eventually([this] { return place().contains("WIDTH=19"); }));
    const QString large = place().section('\n', 1);
    startAgain();
    REQUIRE(waitForWindow("Ardeno"));
    CHECK(eventually([&] { return place().section('\n', 1) == large; }));
    terminate();

    startApplication({"--background"});
    REQUIRE(eventually([this] { return session.isQuiet(); }));
    startAgain();
    CHECK(run({"list"}).status == 0);
    CHECK(window("Ardeno").isEmpty());
}
