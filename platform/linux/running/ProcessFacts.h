// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Date.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

namespace ardeno {

// What the system tells about a running process. Everything is empty when the process has ended or is not ours. Nothing
// that a process names is touched, unless it is said.
class ProcessFacts final {
public:
    // The folder is the kernel's, or one that looks like it.
    explicit ProcessFacts(qint32 processID, const QString &processes = "/proc")
        : m_processID(processID), m_folder(processes + '/' + QString::number(processID))
    {
    }

    // All processes that run.
    static QList<qint32> running(const QString &processes = "/proc");

    // Its own folder.
    const QString &folder() const { return m_folder; }

    // The full path of its program. A process that hides its memory (a password manager) hides this, too: then what its
    // command line calls it, a path or a name.
    QString program() const;
    // What it calls itself, 15 bytes at most.
    QString name() const;
    // Its command line as the kernel has it: each word ends with a zero byte, unless the process has written it anew.
    QByteArray commandLine() const;
    // Its command line without the program.
    QStringList arguments() const;
    // The files and folders among its arguments as absolute paths, each in every way it may be meant: a program may
    // have left the folder it was started in. Looks for them: what does not exist is left out.
    QStringList pathArguments() const;
    // When it was started: in ticks of the kernel since the machine was, 0 when it has ended, and as a date.
    quint64 startTicks() const;
    std::optional<Date> startTime() const;
    // Whether somebody stopped it: it does nothing until it is told to go on.
    bool isStopped() const;
    // Whether this user runs it.
    bool isOwn() const;
    // A variable of the environment it was started with; empty when it is not set.
    QByteArray variable(const QByteArray &name) const;
    // What its descriptors stand for, by their numbers; absent when the system does not show that.
    std::optional<QMap<int, QByteArray>> descriptors() const;
    // The desktop file it was launched by; not that of a parent whose environment it inherited.
    QString launchedDesktopFileID() const;
    // The application that the desktop session's manager started it for.
    QString scopeApplicationID() const;

    // Whether this user runs a program of one of these names, itself or by an interpreter.
    static bool isAnyRunning(const QSet<QString> &programs);

    // The application in the path of a control group: ".../app-gnome-org.gnome.Evince-4711.scope". Empty when none is.
    static QString applicationInControlGroup(const QString &path);

    bool operator==(const ProcessFacts &) const = default;

private:
    QByteArray read(const char *file) const;
    QByteArray link(const QByteArray &name) const;
    QSet<QByteArray> workingFolders() const;

    qint32 m_processID;
    QString m_folder;
};

} // namespace ardeno
