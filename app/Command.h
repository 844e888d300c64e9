// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/CommandContext.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoroTask>
#include <QList>
#include <QString>

namespace ardeno {

enum class ExitStatus {
    Done = 0,
    Failed = 1, // The operation failed; the reason is on standard error.
    WrongUsage = 2,
    NotAvailable = 3, // Not available in this desktop session, or not in this version.
    // 128 and the number of a signal that came before anything was changed.
};

// One command of the command line: what it takes and the function that carries it out.
struct Command {
    QString name = {};
    QString arguments = {}; // As help shows them.
    QString summary = {};
    QList<QCommandLineOption> options = {};
    int positionals = 0; // How many arguments it takes besides its options, exactly.
    // Throws Failure.
    QCoro::Task<ExitStatus> (*run)(CommandContext &context, const QCommandLineParser &parsed) = nullptr;
    bool positionalsAreOptional = false; // Either all of them or none.
};

// The commands, in the order in which help lists them.
const QList<Command> &commands();

QCoro::Task<ExitStatus> runSave(CommandContext &context, const QCommandLineParser &parsed);
QCoro::Task<ExitStatus> runList(CommandContext &context, const QCommandLineParser &parsed);
QCoro::Task<ExitStatus> runShow(CommandContext &context, const QCommandLineParser &parsed);
QCoro::Task<ExitStatus> runResume(CommandContext &context, const QCommandLineParser &parsed);
QCoro::Task<ExitStatus> runExclude(CommandContext &context, const QCommandLineParser &parsed);
QCoro::Task<ExitStatus> runAllow(CommandContext &context, const QCommandLineParser &parsed);
QCoro::Task<ExitStatus> runExclusions(CommandContext &context, const QCommandLineParser &parsed);
QCoro::Task<ExitStatus> runRecord(CommandContext &context, const QCommandLineParser &parsed);
QCoro::Task<ExitStatus> runQuickSave(CommandContext &context, const QCommandLineParser &parsed);
QCoro::Task<ExitStatus> runDoctor(CommandContext &context, const QCommandLineParser &parsed);

} // namespace ardeno
