// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/application/ApplicationFixture.h"
#include "tests/application/SessionManager.h"

using namespace ardeno;
using desktop_test::eventually;

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
};

} // namespace

TEST_CASE_FIXTURE(Logout, "logging out is refused while a session is recorded, and goes through afterwards")
{
    startManaged();
    REQUIRE(run({"record", "start", "--project", "Thesis"}).status == 0);
    CHECK(answerTo(SessionManager::Questions::Any) == SessionManager::Answer::Cancelled);
    picture("logout-refused");
    CHECK(isRunning());
    CHECK(checkpoints().isEmpty());

    REQUIRE(run({"record", "stop"}).status == 0);
    CHECK(answerTo(SessionManager::Questions::Any) == SessionManager::Answer::Ready);
    session.end();
    REQUIRE(eventually([this] { return !isRunning(); }));
    CHECK(end(*application).status == 0);
    CHECK(checkpoints().size() == 1);
}

TEST_CASE_FIXTURE(Logout, "where nobody may be asked, the session's end saves what is recorded")
{
    startManaged();
    REQUIRE(run({"record", "start", "--project", "Thesis"}).status == 0);
    CHECK(answerTo(SessionManager::Questions::None) == SessionManager::Answer::Ready);
    session.end();
    REQUIRE(eventually([this] { return !isRunning(); }));
    CHECK(end(*application).status == 0);
    REQUIRE(checkpoints().size() == 1);
    CHECK(QFile::exists(checkpoints().at(0).toObject().value("recording").toString()));
}
