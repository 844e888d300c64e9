// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/Relaunch.h"

#include "support/Failure.h"

#include <QCoreApplication>
#include <QProcess>

namespace ardeno {

namespace {

constexpr auto argument = "--in-place-of";

} // namespace

QCoro::Task<qint64> Relaunch::start()
{
    qint64 process = 0;
    const QStringList arguments{argument, QString::number(QCoreApplication::applicationPid())};
    if (!QProcess::startDetached(QCoreApplication::applicationFilePath(), arguments, {}, &process))
        throw Failure("Restart", 4, "The program could not be started again.");
    co_return process;
}

std::optional<qint64> Relaunch::predecessor(const QStringList &arguments)
{
    const qsizetype at = arguments.indexOf(argument);
    bool isNumber = false;
    const int process = arguments.value(at + 1).toInt(&isNumber);
    return at >= 0 && isNumber && process > 1 ? std::optional<qint64>(process) : std::nullopt;
}

} // namespace ardeno
