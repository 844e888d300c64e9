// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/desktop/Desktop.h"

#include <QRegularExpression>
#include <QTest>

#include <csignal>
#include <unistd.h>

namespace ardeno::desktop_test {

namespace {

constexpr int deadline = 60000; // Milliseconds.

} // namespace

bool eventually(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, deadline);
}

void waitUntilRead()
{
    QTest::qWait(600);
}

QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(deadline);
    return QString::fromUtf8(process.readAllStandardOutput());
}

Application::Application(const QString &program, const QStringList &arguments)
{
    // A group of its own, so that what it starts can be ended with it.
    m_process.setChildProcessModifier([] { ::setpgid(0, 0); });
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(program, arguments);
    m_process.waitForStarted(deadline);
    m_group = m_process.processId();
}

Application::~Application()
{
    end();
}

quint32 Application::waitForWindow(const QString &titlePart)
{
    quint32 window = 0;
    eventually([&] {
        window = visibleWindows(titlePart).value(0);
        return window != 0 || m_process.state() == QProcess::NotRunning;
    });
    return window;
}

void Application::end()
{
    constexpr int grace = 5000; // Milliseconds.
    if (m_group == 0)
        return;
    ::kill(static_cast<pid_t>(-m_group), SIGTERM);
    if (!m_process.waitForFinished(grace)) {
        ::kill(static_cast<pid_t>(-m_group), SIGKILL);
        m_process.waitForFinished(deadline);
    }
    m_group = 0;
}

BareServer::BareServer(const QStringList &arguments)
{
    m_process.start("Xvfb",
                    QStringList{"-displayfd", "1", "-noreset", "-nolisten", "tcp", "-screen", "0", "640x480x24"} +
                        arguments);
    while (!m_process.canReadLine() && m_process.waitForReadyRead())
        continue;
    m_name = ":" + m_process.readLine().trimmed();
}

void BareServer::end()
{
    m_process.terminate();
    m_process.waitForFinished();
}

QStringList chromiumArguments(const QString &page)
{
    return {
        "--no-sandbox",
        "--disable-gpu",
        "--no-first-run",
        "--disable-background-networking",
        "--disable-sync",
        "--disable-component-update",
        "--password-store=basic",
        "--user-data-dir=" + qEnvironmentVariable("DESKTOP_DIR") + "/chromium",
        page,
    };
}

QList<quint32> visibleWindows(const QString &titlePart)
{
    QList<quint32> found;
    const QStringList query{"search", "--onlyvisible", "--name", QRegularExpression::escape(titlePart)};
    for (const QString &number : outputOf("xdotool", query).split('\n', Qt::SkipEmptyParts))
        found << number.toUInt();
    return found;
}

void press(const QString &titlePart, const QString &keys)
{
    outputOf("wmctrl", {"-a", titlePart});
    eventually([&] { return outputOf("xdotool", {"getactivewindow", "getwindowname"}).contains(titlePart); });
    outputOf("xdotool", {"key", keys});
}

} // namespace ardeno::desktop_test
