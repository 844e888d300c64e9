// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/ResumeControl.h"
#include "capture/WindowContents.h"

#include <QCoroTask>
#include <QHash>
#include <QList>
#include <QSet>
#include <QStringList>
#include <QUuid>

namespace ardeno::WindowLayout {

// The folders and documents that the saved windows of these applications showed and that are to be opened again.
struct LocationRequest {
    QList<SavedWindow> windows = {};
    QSet<QString> allowedAppIDs = {};
    SavedPlaces places = {};
    OpenPlaces open = {};
    QSet<QString> launchedAppIDs = {}; // Already opened with what they had, see pathsByApp().
    ResumeControl control = {};
};

struct LocationResult {
    qint64 folders = 0;
    qint64 viewerDocuments = 0;
    qint64 documents = 0;
    QStringList failures = {};  // Each names what could not be opened, and why.
    QSet<QUuid> openedIDs = {}; // Of the saved windows.
    QSet<QUuid> failedIDs = {};
};

// The existing folders and documents of each application, each once, in saved order.
QHash<QString, QStringList> pathsByApp(const QList<SavedWindow> &windows, const SavedPlaces &places);

// Opens each that exists and is not open: with the application that had it, else with the session's own choice. Never
// throws.
QCoro::Task<LocationResult> restoreLocations(LocationRequest request, Desktop &desktop);

} // namespace ardeno::WindowLayout
