// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/Successor.h"

#include "support/Failure.h"
#include "support/FileDescriptor.h"

#include <QCoreApplication>
#include <QProcess>

#include <cerrno>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace ardeno {

namespace {

constexpr auto argument = "--in-place-of";

} // namespace

QCoro::Task<qint64> Successor::start()
{
    qint64 process = 0;
    const QStringList arguments{argument, QString::number(QCoreApplication::applicationPid())};
    if (!QProcess::startDetached(QCoreApplication::applicationFilePath(), arguments, {}, &process))
        throw Failure("Restart", 4, "The program could not be started again.");
    co_return process;
}

std::optional<qint64> Successor::predecessor(const QStringList &arguments)
{
    const qsizetype at = arguments.indexOf(argument);
    bool isNumber = false;
    const int process = arguments.value(at + 1).toInt(&isNumber);
    return at >= 0 && isNumber && process > 1 ? std::optional<qint64>(process) : std::nullopt;
}

bool Successor::waitForEnd(qint64 process, std::chrono::milliseconds patience)
{
    const FileDescriptor handle(static_cast<int>(::syscall(SYS_pidfd_open, static_cast<pid_t>(process), 0)));
    if (handle.number() < 0)
        return errno == ESRCH; // It has gone already.
    pollfd ending{.fd = handle.number(), .events = POLLIN, .revents = 0};
    const int changes = ::poll(&ending, 1, static_cast<int>(patience.count()));
    return changes == 1;
}

} // namespace ardeno
