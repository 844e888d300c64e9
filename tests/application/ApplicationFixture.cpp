// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/application/ApplicationFixture.h"

#include "tests/ui/ScreenReader.h"

namespace ardeno {

using desktop_test::eventually;
using desktop_test::outputOf;

ApplicationFixture::~ApplicationFixture()
{
    if (!application)
        return;
    application->kill();
    application->waitForFinished();
}

void ApplicationFixture::startApplication(const QStringList &arguments)
{
    application = start(arguments);
    // The lock names the application before it serves; a command then waits for it.
    REQUIRE(eventually([this] { return libraryHolder() == application->processId(); }));
    REQUIRE(run({"list"}).status == 0);
}

ProgramResult ApplicationFixture::terminate() const
{
    application->terminate();
    return end(*application);
}

QString ApplicationFixture::window(const QString &title) const
{
    const QString name = '^' + title + '$';
    return outputOf("xdotool", {"search", "--all", "--onlyvisible", "--pid", QString::number(application->processId()),
                                "--name", name})
        .section('\n', 0, 0);
}

bool ApplicationFixture::waitForWindow(const QString &title) const
{
    return eventually([&] { return !window(title).isEmpty(); });
}

bool ApplicationFixture::waitForNoWindow(const QString &title) const
{
    return eventually([&] { return window(title).isEmpty(); });
}

QString ApplicationFixture::activeWindow() const
{
    return outputOf("xdotool", {"getactivewindow"}).trimmed();
}

void ApplicationFixture::key(const QString &keys)
{
    outputOf("xdotool", {"key", keys});
}

void ApplicationFixture::type(const QString &text)
{
    outputOf("xdotool", {"type", "--delay", "20", text});
}

bool ApplicationFixture::waitForControl(const QString &name) const
{
    const ScreenReader reader(application->processId());
    return eventually([&] { return reader.find(name).has_value(); });
}

bool ApplicationFixture::waitForKeyboard() const
{
    return eventually([this] {
        const QString shown = window("Ardeno");
        return !shown.isEmpty() && activeWindow() == shown;
    });
}

bool ApplicationFixture::waitForEnd() const
{
    return eventually([this] { return application->state() == QProcess::NotRunning; });
}

void ApplicationFixture::picture(const QString &name)
{
    QDir().mkpath(ARDENO_PICTURES);
    outputOf("maim", {QString(ARDENO_PICTURES "/%1.png").arg(name)});
}

} // namespace ardeno
