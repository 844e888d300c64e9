// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/WindowContents.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QUuid>

#include <functional>

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

// By what windows show, where that is known, else by their titles. A window known to show something else is never the
// saved one, and one that was the right one before anything was opened stays it, whatever opens in it meanwhile.
class WindowMatching final {
public:
    WindowMatching(QList<SavedWindow> saved, const SavedPlaces &places);

    // The windows before anything was opened. `isInPlace`: whether the live window stands where the saved one did.
    using PlaceTest = std::function<bool(const SavedWindow &, const MovableWindow &)>;
    void settle(const QList<MovableWindow> &live, const PlacesOfWindows &shown, const PlaceTest &isInPlace);

    WindowMatch find(const SavedWindow &window, const QList<MovableWindow> &live, const PlacesOfWindows &shown) const;

    // Whether the window was there before anything was opened, and not known as a saved one.
    bool isStranger(quint32 windowID) const;

private:
    // How much speaks for it.
    enum class Rank { None, Title, Place };

    // What may be told apart at one moment.
    struct Moment {
        const QList<MovableWindow> &live;
        const PlacesOfWindows &shown;
    };

    Rank rank(const SavedWindow &saved, const MovableWindow &window, const Moment &now) const;
    Rank bestRank(const SavedWindow &saved, const Moment &now) const;
    bool isOther(const SavedWindow &saved, quint32 windowID, const Moment &now) const;
    bool isFree(const SavedWindow &saved, quint32 windowID) const;
    bool isOnlyOne(const SavedWindow &saved, const Moment &now) const;
    bool isElsewhere(const SavedWindow &saved, const Moment &now) const;
    WindowMatch among(const SavedWindow &saved, QList<MovableWindow> candidates, Rank best, const Moment &now) const;
    WindowMatch::Kind againstRival(const SavedWindow &saved, const SavedWindow &rival, const MovableWindow &found,
                                   Rank best, const Moment &now) const;
    QUuid ownerOf(const MovableWindow &window, const SavedWindow &saved, const Moment &now,
                  const PlaceTest &isInPlace) const;

    QList<SavedWindow> m_saved;
    QHash<QUuid, QString> m_places;     // What the saved windows showed, where that is known.
    QHash<quint32, QUuid> m_settled;    // Of live windows: which saved ones they are.
    QHash<quint32, QString> m_formerly; // What live windows showed before anything was opened; empty: not known.
};

} // namespace ardeno::WindowLayout
