// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

#include <QCoroTask>
#include <QHash>
#include <QList>
#include <QSet>
#include <QStringList>
#include <QUuid>

namespace ardeno::WindowLayout {

// What file browsers and other applications show now, as canonical paths.
struct OpenPlaces {
    QSet<QString> folders = {};
    QHash<QString, QSet<QString>> documentsByApp = {};
};

// What there is now at the saved paths.
using SavedPlaces = QHash<QString, PathFacts>;

// The folders and documents that the saved windows of these applications showed and that are to be opened again.
struct LocationRequest {
    QList<SavedWindow> windows = {};
    QSet<QString> allowedAppIDs = {};
    SavedPlaces places = {};
    OpenPlaces open = {};
    QSet<QString> launchedAppIDs = {}; // Already opened with what they had, see pathsByApp().
};

struct LocationResult {
    qint64 folders = 0;
    qint64 viewerDocuments = 0;
    qint64 documents = 0;
    QStringList failures = {};  // Each names what could not be opened, and why.
    QSet<QUuid> openedIDs = {}; // Of the saved windows.
    QSet<QUuid> failedIDs = {};
};

// Asked once for a whole resume: nothing else of it looks at a disk, which may never answer. Never throws.
QCoro::Task<SavedPlaces> savedPlaces(QList<SavedWindow> windows, Desktop &desktop);

// The existing folders and documents of each application, each once, in saved order.
QHash<QString, QStringList> pathsByApp(const QList<SavedWindow> &windows, const SavedPlaces &places);

// Which of the saved places are open now. Windows whose contents nobody knows for certain are judged by their titles:
// rather one place too many than a document opened twice. Never throws.
QCoro::Task<OpenPlaces> openPlaces(QList<SavedWindow> windows, SavedPlaces places, Desktop &desktop);

// Opens each that exists and is not open: with the application that had it, else with the session's own choice. Never
// throws.
QCoro::Task<LocationResult> restoreLocations(LocationRequest request, Desktop &desktop);

} // namespace ardeno::WindowLayout
