// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/OpenedPages.h"
#include "media/Thumbnails.h"
#include "model/CheckpointRepository.h"
#include "services/AppUpdateManifest.h"
#include "support/Preferences.h"

#include <QCoroTask>
#include <QSet>
#include <QString>

#include <functional>
#include <optional>

namespace ardeno {

// What the store is built from; the functions have the desktop's own as defaults and can be replaced.
struct StoreParts {
    Preferences preferences = Preferences(Preferences::defaultFolder());
    CheckpointRepository repository = CheckpointRepository(CheckpointRepository::defaultRoot());
    // Gives the library once, or throws Failure, where it was read before; else the repository is read.
    std::function<WorkspaceLibrary()> loadLibrary = {};
    // Asked before every change of the library; throws Failure where it is not to be made any more.
    std::function<void()> beforeWrite = [] {};
    std::function<bool()> checkScreenAccess = {};
    std::function<bool()> askScreenAccess = {};
    std::function<QCoro::Task<void>()> verifyScreenAccess = {};
    // Starts this application once more and gives the new process's identifier; throws Failure.
    std::function<QCoro::Task<qint64>()> startInstance = {};
    std::function<void()> endApplication = {};
    std::function<QSet<QString>()> runningApplicationIDs = {};
    OpenedPages openedPages = OpenedPages(OpenedPages::defaultPath());
    QString thumbnailFolder = Thumbnails::defaultFolder();
    // Gives the maker's manifest, or nothing for whatever reason. Empty: this build does not look for newer versions.
    std::function<QCoro::Task<std::optional<AppUpdateManifest>>()> fetchUpdate = {};
    // Shows the sample project while there is no other, and opens it at the very first start.
    bool seedStarterExample = false;
    // Names the copies of unreadable libraries again that nobody has dismissed.
    bool remindOfCopies = true;
    // Without the library's lock there may be a session in progress elsewhere, which is not to be touched.
    bool recoverSessions = true;
};

} // namespace ardeno
