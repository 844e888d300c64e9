// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

#include <functional>

// Helpers for tests that run on a desktop of their own.
namespace ardeno::desktop_test {

// Waits until the condition holds and answers whether it did before the deadline, which is only met by faults.
bool eventually(const std::function<bool()> &condition);

// What has only just appeared takes no key that answers it: longer than that.
void waitUntilRead();

// The standard output of a command that ends by itself.
QString outputOf(const QString &program, const QStringList &arguments = {});

// An application that is started with its object and ended with it, with the processes it started.
class Application final {
public:
    explicit Application(const QString &program, const QStringList &arguments = {});
    ~Application();
    Application(const Application &) = delete;
    Application &operator=(const Application &) = delete;

    qint64 processID() const { return m_process.processId(); }

    // The number of its first visible window whose title contains this text; 0 when none has appeared.
    quint32 waitForWindow(const QString &titlePart);
    void end();

private:
    QProcess m_process;
    qint64 m_group = 0;
};

// An X server without a window manager, for what the desktop of the tests does not have.
class BareServer final {
public:
    explicit BareServer(const QStringList &arguments = {});
    BareServer(const BareServer &) = delete;
    BareServer &operator=(const BareServer &) = delete;

    ~BareServer() { end(); }

    // As DISPLAY names it.
    QByteArray name() const { return m_name; }

    void end();

private:
    QProcess m_process;
    QByteArray m_name;
};

// Chromium with a profile of its own, without the parts that need a network or a graphics card.
QStringList chromiumArguments(const QString &page);

// Visible windows whose title contains this text, however deep in their frames.
QList<quint32> visibleWindows(const QString &titlePart);

// Presses keys in the window whose title contains this text.
void press(const QString &titlePart, const QString &keys);

} // namespace ardeno::desktop_test
