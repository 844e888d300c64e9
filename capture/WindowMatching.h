// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/WindowContents.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QUuid>

#include <functional>
#include <utility>

namespace ardeno::WindowLayout {

// Which live window a saved one is; a guess is none. Asks nobody.
struct WindowMatch {
    enum class Kind {
        None,
        Elsewhere, // What it showed is in a window that has its own place.
        Several,   // Nobody knows which.
        One,
    };

    Kind kind = Kind::None;
    MovableWindow window = {}; // Of Kind::One.

    bool operator==(const WindowMatch &) const = default;
};

using WindowMatches = QHash<QUuid, WindowMatch>; // By the saved window.

// By likeness: what windows show, where that is known, their numbers, titles, places and sizes. All windows of an
// application are told apart at once, so that together they are as like as can be; one that could as well be another is
// none. A window known to show something else is never the saved one, and one that was the right one before anything
// was opened stays it, whatever opens in it meanwhile.
class WindowMatching final {
public:
    WindowMatching(QList<SavedWindow> saved, const SavedPlaces &places);

    // The windows before anything was opened. `isInPlace`: whether the live window stands where the saved one did.
    using PlaceTest = std::function<bool(const SavedWindow &, const MovableWindow &)>;
    void settle(const QList<MovableWindow> &live, const PlacesOfWindows &shown, const PlaceTest &isInPlace);

    // From now on the live window is this saved one.
    void settle(const QUuid &savedID, quint32 windowID) { m_settled.insert(windowID, savedID); }

    WindowMatches find(const QList<MovableWindow> &live, const PlacesOfWindows &shown) const;
    // The one window of an application that has come since, for its only saved one that is not found by what it shows
    // or is called: for when nothing else is to come.
    WindowMatch findLast(const SavedWindow &saved, const QList<MovableWindow> &live,
                         const PlacesOfWindows &shown) const;

    // Whether the window was there before anything was opened.
    bool wasThere(quint32 windowID) const { return m_formerly.contains(windowID); }

    // The same, and it is not known as a saved one.
    bool isStranger(quint32 windowID) const;

private:
    // What may be told apart at one moment.
    struct Moment {
        const QList<MovableWindow> &live;
        const PlacesOfWindows &shown;
    };

    qint64 likeness(const SavedWindow &saved, const MovableWindow &window, const Moment &now) const;
    QList<QList<qint64>> likenesses(const QList<SavedWindow> &saved, const QList<MovableWindow> &live,
                                    const Moment &now) const;
    qint64 likenessOfTitles(const SavedWindow &saved, const MovableWindow &window, const Moment &now) const;
    QString bareTitleOf(const SavedWindow &saved, const QString &title) const;
    bool isOther(const SavedWindow &saved, quint32 windowID, const Moment &now) const;
    bool isFree(const SavedWindow &saved, quint32 windowID) const;
    bool isOnlyOne(const SavedWindow &saved, const Moment &now) const;
    bool isElsewhere(const SavedWindow &saved, const Moment &now) const;
    bool hasLikeness(const SavedWindow &saved, const Moment &now) const;
    void match(const QList<SavedWindow> &saved, const Moment &now, WindowMatches *found) const;
    QUuid ownerOf(const MovableWindow &window, const SavedWindow &saved, const Moment &now) const;

    QList<SavedWindow> m_saved;
    PlaceTest m_isInPlace = {};
    QHash<QUuid, QString> m_places;     // What the saved windows showed, where that is known.
    QHash<quint32, QUuid> m_settled;    // Of live windows: which saved ones they are.
    QHash<quint32, QString> m_formerly; // What live windows showed before anything was opened; empty: not known.
    mutable QHash<std::pair<QString, QString>, QString> m_bareTitles; // By application and title.
};

} // namespace ardeno::WindowLayout
