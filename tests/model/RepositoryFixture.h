// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/CheckpointRepository.h"
#include "tests/Printing.h"
#include "tests/support/FailureOf.h"
#include "tests/support/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace ardeno {

// A repository on a folder of its own, and the bytes in it.
struct RepositoryFixture {
    QTemporaryDir home;
    QString root = home.filePath("data/Ardeno");
    CheckpointRepository repository{root};

    QString path(const QString &name = "checkpoints.json") const { return root + '/' + name; }

    QByteArray bytes(const QString &name = "checkpoints.json") const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    }

    void put(const QByteArray &content, const QString &name = "checkpoints.json") const
    {
        writeFile(path(name), content);
    }

    QStringList files() const
    {
        return QDir(root).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QStringList keptCopies() const { return QDir(root).entryList({"checkpoints-unreadable-*.json"}); }

    QString loadFailure() const
    {
        return failureOf([&] { repository.loadLibrary(); });
    }

    QString saveFailure(const WorkspaceLibrary &library) const
    {
        return failureOf([&] { repository.saveLibrary(library); });
    }
};

inline Checkpoint makeCheckpoint(const QString &title, const QUuid &project)
{
    return {.title = title, .projectID = project, .nextStep = "next", .apps = {{"a", "A"}}, .tabs = {{.title = "t"}}};
}

inline WorkspaceLibrary makeLibrary(int count)
{
    WorkspaceLibrary library;
    library.projects = {{.name = "Project"}};
    for (int i = 0; i < count; ++i)
        library.checkpoints.append(makeCheckpoint(QString::number(i), library.projects[0].id));
    return library;
}

} // namespace ardeno
