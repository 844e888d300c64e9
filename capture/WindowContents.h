// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

#include <QCoroTask>
#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QSet>

namespace ardeno::WindowLayout {

// The folder or the document that a saved window showed; empty when it is not known.
QString savedPath(const SavedWindow &window);
// The last part of a path.
QString shortName(const QString &path);

// What there is now at the saved paths.
using SavedPlaces = QHash<QString, PathFacts>;

// Asked once for a whole resume: nothing else of it looks at a disk, which may never answer. Never throws.
QCoro::Task<SavedPlaces> savedPlaces(QList<SavedWindow> windows, Desktop &desktop);

// The folders and documents of windows, as canonical paths by the window's number; only what is known for certain.
using PlacesOfWindows = QHash<quint32, QString>;

// What file browsers and other applications show now, as canonical paths.
struct OpenPlaces {
    QSet<QString> folders = {};
    QHash<QString, QSet<QString>> documentsByApp = {};
    QList<MovableWindow> windows = {}; // All that there were when it was asked.
    PlacesOfWindows placesOfWindows = {};
};

// Which of the saved places are open now. Windows whose contents nobody knows for certain are judged by their titles:
// rather one place too many than a document opened twice. The windows are read before the first wait. Never throws.
QCoro::Task<OpenPlaces> openPlaces(QList<SavedWindow> windows, SavedPlaces places, Desktop &desktop);

// What windows show while a resume waits for them: asked for again when they have come or changed their titles.
class WindowContents final {
public:
    explicit WindowContents(Desktop &desktop) : m_desktop(desktop) {}

    const PlacesOfWindows &places() const { return m_places; }

    void setPlaces(const PlacesOfWindows &places) { m_places = places; }

    // Asks the applications of the awaited windows about live windows that may be these. Never throws.
    QCoro::Task<void> update(QList<MovableWindow> live, QList<SavedWindow> awaited);

private:
    bool hasQuestion(const QString &appID, const QList<MovableWindow> &live) const;
    QCoro::Task<void> ask(QString appID, bool isFileBrowser, QList<MovableWindow> live);

    Desktop &m_desktop;
    PlacesOfWindows m_places;
    QHash<quint32, QString> m_titles;          // With which windows were asked about.
    QHash<QString, QElapsedTimer> m_lastAsked; // By application.
};

} // namespace ardeno::WindowLayout
