// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QSet>
#include <QString>
#include <QStringList>

namespace ardeno {

// What the system tells about a running process. Everything is empty when the process has ended or is not ours.
class ProcessFacts final {
public:
    explicit ProcessFacts(qint32 processID) : m_processID(processID) {}

    // The full path of its program. A process that hides its memory (a password manager) hides this, too: then what its
    // command line calls it, a path or a name.
    QString program() const;
    // What it calls itself, 15 bytes at most.
    QString name() const;
    // Its command line without the program.
    QStringList arguments() const;
    // The files and folders among its arguments as absolute paths, each in every way it may be meant: a program may
    // have left the folder it was started in. What does not exist is left out.
    QStringList pathArguments() const;
    // When it was started; invalid when it has ended.
    QDateTime startTime() const;
    // The desktop file it was launched by; not that of a parent whose environment it inherited.
    QString launchedDesktopFileID() const;
    // The application that the session's manager started it for.
    QString scopeApplicationID() const;

    // Whether this user runs a program of one of these names, itself or by an interpreter.
    static bool isAnyRunning(const QSet<QString> &programs);

    // The application in the path of a control group: ".../app-gnome-org.gnome.Evince-4711.scope". Empty when none is.
    static QString applicationInControlGroup(const QString &path);

private:
    QByteArray read(const char *file) const;
    QString link(const char *name) const;
    QSet<QByteArray> workingFolders() const;

    qint32 m_processID;
};

} // namespace ardeno
