// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/Printing.h"
#include "tests/support/Files.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <memory>

namespace ardeno {

struct ProgramResult {
    int status = -1; // -1: it crashed or did not end.
    QByteArray out = {};
    QByteArray error = {};

    QJsonObject json() const { return QJsonDocument::fromJson(out).object(); }
};

// The finished program with a home of its own.
struct ProgramFixture {
    QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();

    ProgramFixture()
    {
        environment.insert("XDG_DATA_HOME", home.filePath("data"));
        environment.insert("XDG_CONFIG_HOME", home.filePath("config"));
        environment.insert("LANG", "en_US.UTF-8");
    }

    QString root() const { return home.filePath("data/Ardeno"); }

    QString libraryPath() const { return root() + "/checkpoints.json"; }

    std::unique_ptr<QProcess> start(const QStringList &arguments) const
    {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment);
        process->start(ARDENO_PROGRAM, arguments);
        process->waitForStarted();
        return process;
    }

    static ProgramResult end(QProcess &process)
    {
        const bool isDone = process.state() == QProcess::NotRunning || process.waitForFinished(60'000);
        const bool isNormal = isDone && process.exitStatus() == QProcess::NormalExit;
        return {isNormal ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
    }

    // Whether the program has something to end tidily when this signal comes.
    static bool notes(const QProcess &process, int signal)
    {
        const QByteArray text = fileBytes(QString("/proc/%1/status").arg(process.processId()));
        const QByteArray caught = text.mid(text.indexOf("SigCgt:") + 7).trimmed().left(16);
        return (caught.toULongLong(nullptr, 16) >> (signal - 1) & 1) != 0;
    }

    ProgramResult run(const QStringList &arguments) const { return end(*start(arguments)); }

    // The library's checkpoints as any JSON reader sees them.
    QJsonObject library() const { return QJsonDocument::fromJson(fileBytes(libraryPath())).object(); }

    QJsonArray checkpoints() const { return library().value("checkpoints").toArray(); }

    // The process that has the library, or had it last.
    qint64 libraryHolder() const { return fileBytes(root() + "/lock").split(' ').first().toLongLong(); }
};

} // namespace ardeno
