// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowMatching.h"

#include <algorithm>
#include <utility>

namespace ardeno::WindowLayout {

namespace {

// What a file browser shows of a file is its folder.
QString placeOf(const SavedWindow &window, const SavedPlaces &places)
{
    const PathFacts facts = places.value(savedPath(window));
    const bool isInFolder = window.locationURL && facts.kind == PathFacts::Kind::File;
    return isInFolder ? facts.canonicalPath.section('/', 0, -2) : facts.canonicalPath;
}

} // namespace

WindowMatching::WindowMatching(QList<SavedWindow> saved, const SavedPlaces &places) : m_saved(std::move(saved))
{
    for (const SavedWindow &window : std::as_const(m_saved)) {
        if (const QString place = placeOf(window, places); !place.isEmpty())
            m_places.insert(window.id, place);
    }
}

bool WindowMatching::isStranger(quint32 windowID) const
{
    return m_formerly.contains(windowID) && !m_settled.contains(windowID);
}

bool WindowMatching::isFree(const SavedWindow &saved, quint32 windowID) const
{
    const auto settled = m_settled.constFind(windowID);
    return settled == m_settled.cend() || *settled == saved.id;
}

bool WindowMatching::isOther(const SavedWindow &saved, quint32 windowID, const Moment &now) const
{
    const QString place = m_places.value(saved.id);
    const auto differs = [&](const QString &shown) { return !shown.isEmpty() && shown != place; };
    return !place.isEmpty() && (differs(now.shown.value(windowID)) || differs(m_formerly.value(windowID)));
}

// An untitled window can only be told where there is one.
bool WindowMatching::isOnlyOne(const SavedWindow &saved, const Moment &now) const
{
    const auto isOwn = [&](const auto &id) { return id == saved.appID; };
    const auto countSaved =
        std::count_if(m_saved.begin(), m_saved.end(), [&](const SavedWindow &window) { return isOwn(window.appID); });
    const auto countLive = std::count_if(now.live.begin(), now.live.end(), [&](const MovableWindow &window) {
        return isOwn(window.applicationID) && !isOther(saved, window.windowID, now);
    });
    return countSaved == 1 && countLive == 1;
}

WindowMatching::Rank WindowMatching::rank(const SavedWindow &saved, const MovableWindow &window,
                                          const Moment &now) const
{
    if (window.applicationID != saved.appID || !isFree(saved, window.windowID) || isOther(saved, window.windowID, now))
        return Rank::None;
    const QString place = m_places.value(saved.id);
    if (!place.isEmpty() && now.shown.value(window.windowID) == place)
        return Rank::Place;
    const bool isTitled = saved.title.isEmpty() ? isOnlyOne(saved, now) : saved.title == window.title;
    return isTitled ? Rank::Title : Rank::None;
}

WindowMatching::Rank WindowMatching::bestRank(const SavedWindow &saved, const Moment &now) const
{
    Rank best = Rank::None;
    for (const MovableWindow &window : now.live)
        best = std::max(best, rank(saved, window, now));
    return best;
}

// Asked when no window may be it: a window that was there before and now shows it has a place of its own.
bool WindowMatching::isElsewhere(const SavedWindow &saved, const Moment &now) const
{
    const QString place = m_places.value(saved.id);
    return std::any_of(now.live.begin(), now.live.end(), [&](const MovableWindow &window) {
        const bool isTitled = !saved.title.isEmpty() && window.title == saved.title;
        const auto shown = now.shown.constFind(window.windowID);
        const bool showsIt = shown == now.shown.cend() ? isTitled : !place.isEmpty() && *shown == place;
        return window.applicationID == saved.appID && m_formerly.contains(window.windowID) && showsIt;
    });
}

WindowMatch WindowMatching::among(const SavedWindow &saved, QList<MovableWindow> candidates, Rank best,
                                  const Moment &now) const
{
    // Of windows that show the same the titles decide.
    const auto hasTitle = [&](const MovableWindow &window) { return window.title == saved.title; };
    if (candidates.size() > 1 && std::count_if(candidates.begin(), candidates.end(), hasTitle) == 1)
        candidates.removeIf([&](const MovableWindow &window) { return !hasTitle(window); });
    if (candidates.size() != 1)
        return {WindowMatch::Kind::Several};
    const MovableWindow &found = candidates.first();
    for (const SavedWindow &rival : m_saved) {
        const auto kind = againstRival(saved, rival, found, best, now);
        if (kind != WindowMatch::Kind::One)
            return {kind};
    }
    return {WindowMatch::Kind::One, found};
}

// What another saved window that may be the same live one leaves of the match.
WindowMatch::Kind WindowMatching::againstRival(const SavedWindow &saved, const SavedWindow &rival,
                                               const MovableWindow &found, Rank best, const Moment &now) const
{
    const Rank its = rank(rival, found, now);
    if (rival.id == saved.id || its < best || its < bestRank(rival, now))
        return WindowMatch::Kind::One;
    const bool hasOwnTitle = saved.title == found.title;
    const bool hasRivalsTitle = rival.title == found.title;
    if (its > best || (hasRivalsTitle && !hasOwnTitle))
        return WindowMatch::Kind::None;
    return hasRivalsTitle || !hasOwnTitle ? WindowMatch::Kind::Several : WindowMatch::Kind::One;
}

WindowMatch WindowMatching::find(const SavedWindow &window, const QList<MovableWindow> &live,
                                 const PlacesOfWindows &shown) const
{
    const Moment now{live, shown};
    for (const MovableWindow &candidate : live) {
        if (m_settled.contains(candidate.windowID) && m_settled.value(candidate.windowID) == window.id)
            return {WindowMatch::Kind::One, candidate};
    }
    const Rank best = bestRank(window, now);
    if (best == Rank::None)
        return {isElsewhere(window, now) ? WindowMatch::Kind::Elsewhere : WindowMatch::Kind::None};
    QList<MovableWindow> candidates = live;
    candidates.removeIf([&](const MovableWindow &candidate) { return rank(window, candidate, now) != best; });
    return among(window, candidates, best, now);
}

// A window that stands in the place of a saved one which is nowhere is that one: it shows another of its documents.
QUuid WindowMatching::ownerOf(const MovableWindow &window, const SavedWindow &saved, const Moment &now,
                              const PlaceTest &isInPlace) const
{
    if (isInPlace(saved, window))
        return saved.id;
    const auto lost = std::find_if(m_saved.begin(), m_saved.end(), [&](const SavedWindow &other) {
        return other.appID == saved.appID && other.id != saved.id && isInPlace(other, window) &&
               bestRank(other, now) == Rank::None;
    });
    return lost == m_saved.end() ? saved.id : lost->id;
}

void WindowMatching::settle(const QList<MovableWindow> &live, const PlacesOfWindows &shown, const PlaceTest &isInPlace)
{
    const Moment now{live, shown};
    QHash<quint32, QUuid> settled;
    for (const SavedWindow &saved : std::as_const(m_saved)) {
        const WindowMatch match = find(saved, live, shown);
        if (match.kind == WindowMatch::Kind::One)
            settled.insert(match.window.windowID, ownerOf(match.window, saved, now, isInPlace));
    }
    m_settled = settled;
    for (const MovableWindow &window : live)
        m_formerly.insert(window.windowID, shown.value(window.windowID));
}

} // namespace ardeno::WindowLayout
