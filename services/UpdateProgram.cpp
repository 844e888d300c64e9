// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/UpdateProgram.h"

#include <QCoroSignal>
#include <QFileInfo>
#include <QProcess>
#include <QTimer>

#include <memory>

namespace ardeno {

namespace {

QCoro::Task<std::optional<AppUpdateManifest>> manifestOf(QString program, std::chrono::milliseconds patience)
{
    // Deleted later, as it is its own signal that resumes this.
    const std::unique_ptr<QProcess, QScopedPointerDeleteLater> process(new QProcess);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    QTimer::singleShot(patience, process.get(), &QProcess::kill);
    process->start(program, QStringList());
    while (process->state() != QProcess::NotRunning)
        co_await qCoro(process.get(), &QProcess::stateChanged);
    if (process->error() != QProcess::UnknownError || process->exitCode() != 0)
        co_return std::nullopt;
    co_return AppUpdateManifest::fromJson(process->readAllStandardOutput());
}

} // namespace

UpdateProgram::Fetch UpdateProgram::fetch(const QString &program, std::chrono::milliseconds patience)
{
    if (!QFileInfo(program).isExecutable())
        return {};
    return [program, patience] { return manifestOf(program, patience); };
}

} // namespace ardeno
