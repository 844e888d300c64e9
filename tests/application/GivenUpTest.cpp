// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/application/ApplicationFixture.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QFile>

#include <csignal>
#include <sys/file.h>

using namespace ardeno;
using desktop_test::eventually;

namespace {

// A connection of its own, which can go as a process does.
struct Client {
    static constexpr const char *name = "client";
    QDBusConnection connection = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);

    ~Client() { QDBusConnection::disconnectFromBus(name); }

    QDBusPendingCall execute(const QStringList &arguments) const
    {
        QDBusMessage call = QDBusMessage::createMethodCall("org.ardeno.Ardeno", "/org/ardeno/Ardeno",
                                                           "org.ardeno.Ardeno.CommandLine", "Execute");
        call.setArguments({arguments});
        return connection.asyncCall(call, 60'000);
    }
};

const QStringList save = {"save", "--project", "Thesis", "--no-tabs"};

} // namespace

TEST_CASE_FIXTURE(ApplicationFixture, "a command that was given up before it began is not carried out later")
{
    startApplication({"--background"});
    const pid_t process = pid_t(application->processId());
    ::kill(process, SIGSTOP);
    const ProgramResult unanswered = run(save);
    CAPTURE(unanswered.error);
    CHECK(unanswered.status == 1);
    CHECK(unanswered.error.contains("(process " + QByteArray::number(process) + "), has been stopped"));
    CHECK(unanswered.error.contains("Nothing was done."));
    const auto interrupted = start(save);
    REQUIRE(eventually([&] { return notes(*interrupted, SIGTERM); }));
    interrupted->terminate();
    const ProgramResult result = end(*interrupted);
    CHECK(result.status == 128 + SIGTERM);
    CHECK(result.error.contains("Nothing was done."));
    {
        const Client gone;
        for (int i = 0; i < 20; ++i)
            gone.execute(save);
        gone.connection.call(QDBusMessage::createMethodCall("org.freedesktop.DBus", "/", "", "GetId"));
    }
    ::kill(process, SIGCONT);
    CHECK(run({"list"}).out.isEmpty());
    // Others who wait are served, whether they know of questions or not.
    const Client other;
    QDBusPendingCall call = other.execute(save);
    call.waitForFinished();
    CHECK(call.reply().arguments().value(0) == 0);
    CHECK(checkpoints().size() == 1);
}

TEST_CASE_FIXTURE(ApplicationFixture, "an application that is told to end refuses what waits, however much it is")
{
    startApplication({"--background"});
    REQUIRE(run(save).status == 0);
    const Client client;
    QList<QDBusPendingCall> calls;
    for (int i = 0; i < 3000; ++i)
        calls << client.execute({"list"});
    calls.first().waitForFinished();
    const ProgramResult ended = terminate();
    CHECK(ended.status == 0);
    calls.last().waitForFinished();
    const auto isRefused = [](const QDBusPendingCall &call) {
        return call.reply().errorName() == "org.ardeno.Ardeno.Error.Ending";
    };
    CHECK(calls.first().reply().arguments().value(0) == 0);
    CHECK(calls.last().isError());
    CHECK(std::any_of(calls.begin(), calls.end(), isRefused));
}

TEST_CASE_FIXTURE(ApplicationFixture, "a stranger who has the application's name on the bus is named at once")
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    REQUIRE(bus.registerService("org.ardeno.Ardeno"));
    const QByteArray stranger = QByteArray::number(QCoreApplication::applicationPid());
    for (const QStringList &command :
         {QStringList{"record", "start", "--project", "Thesis"}, QStringList{"--background"}}) {
        const ProgramResult refused = run(command);
        CHECK(refused.status == 1);
        CHECK(refused.error.contains("Process " + stranger));
    }

    // Something runs that has the library, but not the name.
    QProcess holder;
    holder.start("sleep", {"300"});
    holder.waitForStarted();
    QDir().mkpath(root());
    QFile lock(root() + "/lock");
    REQUIRE(lock.open(QIODevice::ReadWrite));
    REQUIRE(::flock(lock.handle(), LOCK_EX) == 0);
    lock.write(QByteArray::number(holder.processId()) + " application\n");
    lock.flush();
    const ProgramResult refused = run(save);
    CAPTURE(refused.error);
    CHECK(refused.status == 1);
    CHECK(refused.error.contains("Process " + stranger));
    CHECK(refused.error.contains("(process " + QByteArray::number(holder.processId()) + "), cannot be reached"));
    holder.kill();
    holder.waitForFinished();
    bus.unregisterService("org.ardeno.Ardeno");
}

TEST_CASE_FIXTURE(ApplicationFixture, "calls on the bus that make no sense are refused and harm nothing")
{
    startApplication({"--background"});
    REQUIRE(run(save).status == 0);
    const Client client;
    const auto answer = [&](const char *path, const char *interface, const char *method,
                            const QVariantList &arguments) {
        QDBusMessage call = QDBusMessage::createMethodCall("org.ardeno.Ardeno", path, interface, method);
        call.setArguments(arguments);
        return client.connection.call(call, QDBus::Block, 60'000);
    };
    constexpr auto ownPath = "/org/ardeno/Ardeno";
    constexpr auto commandLine = "org.ardeno.Ardeno.CommandLine";
    constexpr auto freedesktop = "org.freedesktop.Application";
    for (const QVariantList &arguments :
         {QVariantList{}, {"list"}, {7}, {QStringList{"list"}, "more"}, {QByteArray("list")}})
        CHECK(answer(ownPath, commandLine, "Execute", arguments).errorName() ==
              "org.freedesktop.DBus.Error.InvalidArgs");
    CHECK(answer(ownPath, commandLine, "Erase", {}).type() == QDBusMessage::ErrorMessage);
    CHECK(answer(ownPath, "org.ardeno.Else", "Execute", {QStringList{"list"}}).type() == QDBusMessage::ErrorMessage);
    CHECK(answer("/", commandLine, "Execute", {QStringList{"list"}}).type() == QDBusMessage::ErrorMessage);
    CHECK(answer(ownPath, freedesktop, "ActivateAction", {}).type() == QDBusMessage::ErrorMessage);
    CHECK(answer(ownPath, freedesktop, "ActivateAction", {"no such", 1, 2}).type() == QDBusMessage::ErrorMessage);
    // Words that are none of the command line's, and more of them than anybody types.
    QStringList many;
    for (int i = 0; i < 100'000; ++i)
        many += "x";
    for (const QStringList &words : {QStringList{}, QStringList{""}, QStringList{u"\u202e\n\u0007"_qs}, many})
        CHECK(answer(ownPath, commandLine, "Execute", {words}).arguments().value(0) == 2);
    CHECK(isRunning());
    CHECK(checkpoints().size() == 1);
}
