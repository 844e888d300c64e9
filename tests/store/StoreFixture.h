// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"
#include "store/PreferenceKeys.h"
#include "tests/Printing.h"
#include "tests/fakes/InMemoryDesktop.h"
#include "tests/support/Files.h"

#include <QTemporaryDir>

#include <memory>

namespace ardeno {

inline QStringList namesOf(const QList<Project> &projects)
{
    QStringList names;
    for (const Project &project : projects)
        names << project.name;
    return names;
}

// A store on a real folder and a desktop in memory with one display and one application.
struct StoreFixture {
    QTemporaryDir home;
    fakes::InMemoryDesktop memory;
    Desktop desktop = memory.makeDesktop();
    CheckpointRepository repository{root()}; // That of the store.
    std::unique_ptr<AppStore> opened;
    bool seedStarterExample = false;
    std::function<QCoro::Task<std::optional<AppUpdateManifest>>()> fetchUpdate = {};

    StoreFixture()
    {
        memory.addDisplay(1, {0, 0, 1920, 1080});
        memory.addApplication("org.editor", "Editor", {100, 100, 800, 600}, "notes.txt");
    }

    QString root() const { return home.filePath("library"); }

    QString libraryPath() const { return root() + "/checkpoints.json"; }

    Preferences preferences() const { return Preferences(home.filePath("settings")); }

    AppStore &store()
    {
        if (!opened)
            reopen();
        return *opened;
    }

    // As a new start of the program finds it.
    AppStore &reopen()
    {
        opened.reset();
        repository = CheckpointRepository(root());
        StoreParts parts{.preferences = preferences(),
                         .repository = repository,
                         .openedPages = OpenedPages(home.filePath("opened-pages"))};
        parts.thumbnailFolder = home.filePath("thumbnails");
        parts.seedStarterExample = seedStarterExample;
        parts.fetchUpdate = fetchUpdate;
        opened = std::make_unique<AppStore>(desktop, std::move(parts));
        return *opened;
    }

    // Every write of the library fails from now on, as on a disk that broke: a folder stands where the file belongs.
    void breakLibrary()
    {
        QFile::rename(libraryPath(), root() + "/moved");
        QDir().mkpath(libraryPath() + "/in-the-way");
    }

    void mendLibrary() const
    {
        REQUIRE(QDir(libraryPath()).removeRecursively());
        REQUIRE(QFile::rename(root() + "/moved", libraryPath()));
    }

    // A checkpoint with a picture, saved at this many seconds since 2001.
    Checkpoint saveCheckpoint(const QUuid &project, const QString &title, double seconds)
    {
        Checkpoint checkpoint{.title = title, .projectID = project, .createdAt = {seconds}};
        checkpoint.screenshot = root() + '/' + uuidText(checkpoint.id) + "/snapshot.png";
        writeFile(*checkpoint.screenshot, "picture of " + title.toUtf8());
        REQUIRE(store().editing.save(checkpoint));
        return checkpoint;
    }

    QStringList mediaFolders() const { return QDir(root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot); }

    QString mediaFolder(const Checkpoint &checkpoint) const { return root() + '/' + uuidText(checkpoint.id); }
};

} // namespace ardeno
