// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MakeDesktop.h"

#include "support/Failure.h"
#include "tests/Printing.h"

#include <doctest/doctest.h>

#include <QScopeGuard>

using namespace ardeno;

namespace {

// Makes the desktop with another value of a variable than the session's.
Desktop makeDesktopWith(const char *variable, const QByteArray &value)
{
    const QByteArray before = qgetenv(variable);
    const bool wasSet = qEnvironmentVariableIsSet(variable);
    const auto restore = qScopeGuard([&] { wasSet ? qputenv(variable, before) : qunsetenv(variable); });
    qputenv(variable, value);
    return makeDesktop();
}

void checkNull(Desktop &desktop, const QString &session, const QString &reasonPart)
{
    CHECK(desktop.session == session);
    CHECK(desktop.roles.ownID == "org.ardeno.Ardeno");
    const Capability capability = desktop.windowServer->availability();
    CHECK(capability.state == Capability::State::Unavailable);
    CHECK(capability.reason.contains(reasonPart));
    CHECK(desktop.workspace->availability() == capability);
    CHECK(desktop.screenCapture->availability() == capability);
    CHECK(desktop.screenCapture->exclusionAvailability() == capability);
    CHECK(desktop.windowServer->windows().isEmpty());
    CHECK(desktop.windowServer->displays().isEmpty());
    CHECK(desktop.workspace->runningApplications().isEmpty());
    CHECK_FALSE(desktop.screenAccess->check());
    CHECK_FALSE(desktop.screenAccess->ask());
    CHECK_THROWS_WITH_AS(desktop.screenCapture->displays(), capability.reason.toUtf8().constData(), Failure);
}

} // namespace

TEST_CASE("an X11 session is offered as it is")
{
    Desktop desktop = makeDesktop();
    CHECK(desktop.session == "x11");
    CHECK(desktop.windowServer->availability().isAvailable());
    CHECK(desktop.workspace->availability().isAvailable());
    CHECK(desktop.screenAccess->check());
    CHECK_FALSE(desktop.windowServer->displays().isEmpty());
    CHECK_FALSE(desktop.workspace->installedApplications().isEmpty());
}

TEST_CASE("a Wayland session is refused with its reason, however it shows")
{
    Desktop byType = makeDesktopWith("XDG_SESSION_TYPE", "wayland");
    checkNull(byType, "wayland", "Wayland");
    Desktop bySocket = makeDesktopWith("WAYLAND_DISPLAY", "wayland-0");
    checkNull(bySocket, "wayland", "Wayland");
}

TEST_CASE("without a display the reason says what is missing")
{
    Desktop unset = makeDesktopWith("DISPLAY", "");
    checkNull(unset, "none", "DISPLAY");
    Desktop unreachable = makeDesktopWith("DISPLAY", ":64999");
    checkNull(unreachable, "none", ":64999");
}
