// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QList>
#include <QString>

namespace ardeno {

enum class ExitStatus {
    Done = 0,
    Failed = 1, // The operation failed; the reason is on standard error.
    WrongUsage = 2,
    NotAvailable = 3, // Not available in this session, or not in this version.
    // 128 and the number of a signal that came before anything was changed.
};

// One command of the command line: what it takes and the function that carries it out.
struct Command {
    QString name = {};
    QString arguments = {}; // As help shows them.
    QString summary = {};
    QList<QCommandLineOption> options = {};
    int positionals = 0; // How many arguments it takes besides its options, exactly.
    ExitStatus (*run)(const QCommandLineParser &parsed) = nullptr;
    bool positionalsAreOptional = false; // Either all of them or none.
};

// The commands, in the order in which help lists them.
const QList<Command> &commands();

ExitStatus runSave(const QCommandLineParser &parsed);
ExitStatus runList(const QCommandLineParser &parsed);
ExitStatus runShow(const QCommandLineParser &parsed);
ExitStatus runResume(const QCommandLineParser &parsed);
ExitStatus runExclude(const QCommandLineParser &parsed);
ExitStatus runAllow(const QCommandLineParser &parsed);
ExitStatus runExclusions(const QCommandLineParser &parsed);
ExitStatus runRecord(const QCommandLineParser &parsed);
ExitStatus runQuickSave(const QCommandLineParser &parsed);
ExitStatus runDoctor(const QCommandLineParser &parsed);

} // namespace ardeno
