// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowMatching.h"

#include "capture/Assignment.h"
#include "capture/BareTitle.h"

#include <QMap>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ardeno::WindowLayout {

namespace {

// How much speaks for a window. Any of the first four is enough, the others only tell apart what is alike.
constexpr qint64 samePlace = 100; // What it shows.
constexpr qint64 sameNumber = 60; // And process: it has never been closed.
constexpr qint64 sameTitle = 40;
constexpr qint64 sameBareTitle = 30;
constexpr qint64 standsThere = 15;
constexpr qint64 sameSize = 5;
constexpr qint64 sameDesktop = 3;
// By how much a match must be better than the best without it.
constexpr qint64 clearly = 10;
// More windows that are alike than anybody tells apart.
constexpr qsizetype mostAlike = 40;

// What a file browser shows of a file is its folder.
QString placeOf(const SavedWindow &window, const SavedPlaces &places)
{
    const PathFacts facts = places.value(savedPath(window));
    const bool isInFolder = window.locationURL && facts.kind == PathFacts::Kind::File;
    return isInFolder ? facts.canonicalPath.section('/', 0, -2) : facts.canonicalPath;
}

bool hasSameSize(const WindowRect &a, const WindowRect &b)
{
    return std::abs(a.width - b.width) <= 1 && std::abs(a.height - b.height) <= 1;
}

bool hasSameNumber(const SavedWindow &saved, const MovableWindow &window)
{
    return saved.windowID != 0 && saved.windowID == window.windowID && saved.processID == window.processID;
}

// The windows of one application that could be each other.
class LikenessTable final {
public:
    explicit LikenessTable(QList<QList<qint64>> scores)
        : m_scores(std::move(scores)), m_best(Assignment::best(m_scores))
    {
    }

    qint64 bestOf(qsizetype row) const
    {
        const QList<qint64> &scores = m_scores[row];
        return scores.isEmpty() ? 0 : *std::max_element(scores.begin(), scores.end());
    }

    // The column of the row when any other way is clearly worse. Without a column nobody knows whether it has one, or
    // it certainly has none.
    std::pair<WindowMatch::Kind, qsizetype> find(qsizetype row) const
    {
        const qsizetype column = m_best.columns[row];
        if (column >= 0) {
            const bool isClear = m_best.sum - Assignment::best(without(row, column)).sum >= clearly;
            return {isClear ? WindowMatch::Kind::One : WindowMatch::Kind::Several, column};
        }
        for (qsizetype other = 0; other < m_scores[row].size(); ++other) {
            if (m_scores[row][other] > 0 && m_best.sum - sumWith(row, other) < clearly)
                return {WindowMatch::Kind::Several, -1};
        }
        return {WindowMatch::Kind::None, -1};
    }

private:
    QList<QList<qint64>> without(qsizetype row, qsizetype column) const
    {
        QList<QList<qint64>> scores = m_scores;
        scores[row][column] = 0;
        return scores;
    }

    // The best sum when this row has this column.
    qint64 sumWith(qsizetype row, qsizetype column) const
    {
        QList<QList<qint64>> scores = m_scores;
        for (QList<qint64> &others : scores)
            others[column] = 0;
        scores[row].fill(0);
        return m_scores[row][column] + Assignment::best(scores).sum;
    }

    QList<QList<qint64>> m_scores;
    Assignment m_best;
};

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

qint64 WindowMatching::likenessOfTitles(const SavedWindow &saved, const MovableWindow &window, const Moment &now) const
{
    if (saved.title.isEmpty())
        return isOnlyOne(saved, now) ? sameTitle : 0;
    if (saved.title == window.title)
        return sameTitle;
    const QString bare = bareTitleOf(saved, saved.title);
    return !bare.isEmpty() && bare == bareTitleOf(saved, window.title) ? sameBareTitle : 0;
}

// Asked for every pair of windows again and again.
QString WindowMatching::bareTitleOf(const SavedWindow &saved, const QString &title) const
{
    const std::pair key(saved.appID, title);
    const auto known = m_bareTitles.constFind(key);
    if (known != m_bareTitles.cend())
        return *known;
    return *m_bareTitles.insert(key, bareTitle(title, {saved.appName, saved.appID.section('.', -1)}));
}

qint64 WindowMatching::likeness(const SavedWindow &saved, const MovableWindow &window, const Moment &now) const
{
    if (window.applicationID != saved.appID || !isFree(saved, window.windowID) || isOther(saved, window.windowID, now))
        return 0;
    qint64 score = likenessOfTitles(saved, window, now);
    const QString place = m_places.value(saved.id);
    if (!place.isEmpty() && now.shown.value(window.windowID) == place)
        score += samePlace;
    if (hasSameNumber(saved, window))
        score += sameNumber;
    if (score == 0)
        return 0;
    if (m_isInPlace && m_isInPlace(saved, window))
        score += standsThere;
    if (hasSameSize(saved.frame, window.frame))
        score += sameSize;
    if (saved.desktop && window.desktop && *saved.desktop == *window.desktop)
        score += sameDesktop;
    return score;
}

bool WindowMatching::hasLikeness(const SavedWindow &saved, const Moment &now) const
{
    return std::any_of(now.live.begin(), now.live.end(),
                       [&](const MovableWindow &window) { return likeness(saved, window, now) > 0; });
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

QList<QList<qint64>> WindowMatching::likenesses(const QList<SavedWindow> &saved, const QList<MovableWindow> &live,
                                                const Moment &now) const
{
    QList<QList<qint64>> scores;
    for (const SavedWindow &window : saved) {
        QList<qint64> row;
        for (const MovableWindow &candidate : live)
            row.append(likeness(window, candidate, now));
        scores.append(row);
    }
    return scores;
}

// Of one application, without the settled ones.
void WindowMatching::match(const QList<SavedWindow> &saved, const Moment &now, WindowMatches *found) const
{
    QList<MovableWindow> live = now.live;
    live.removeIf([&](const MovableWindow &window) {
        return window.applicationID != saved.first().appID || m_settled.contains(window.windowID);
    });
    const bool isTooMuch = std::min(saved.size(), live.size()) > mostAlike;
    const LikenessTable table(isTooMuch ? QList<QList<qint64>>(saved.size()) : likenesses(saved, live, now));
    for (qsizetype i = 0; i < saved.size(); ++i) {
        auto [kind, column] = isTooMuch ? std::pair(WindowMatch::Kind::Several, qsizetype(-1)) : table.find(i);
        if (kind == WindowMatch::Kind::None && table.bestOf(i) == 0 && isElsewhere(saved[i], now))
            kind = WindowMatch::Kind::Elsewhere;
        found->insert(saved[i].id, {kind, kind == WindowMatch::Kind::One ? live[column] : MovableWindow()});
    }
}

WindowMatches WindowMatching::find(const QList<MovableWindow> &live, const PlacesOfWindows &shown) const
{
    const Moment now{live, shown};
    WindowMatches found;
    for (const MovableWindow &window : live) {
        if (const QUuid saved = m_settled.value(window.windowID); !saved.isNull())
            found.insert(saved, {WindowMatch::Kind::One, window});
    }
    QMap<QString, QList<SavedWindow>> left;
    for (const SavedWindow &window : m_saved) {
        if (!found.contains(window.id))
            left[window.appID].append(window);
    }
    for (const QList<SavedWindow> &windows : std::as_const(left))
        match(windows, now, &found);
    return found;
}

WindowMatch WindowMatching::findLast(const SavedWindow &saved, const QList<MovableWindow> &live,
                                     const PlacesOfWindows &shown) const
{
    const Moment now{live, shown};
    const WindowMatches matches = find(live, shown);
    const auto isLost = [&](const SavedWindow &window) {
        return window.appID == saved.appID && matches.value(window.id).kind != WindowMatch::Kind::One;
    };
    QList<MovableWindow> come = live;
    come.removeIf([&](const MovableWindow &window) {
        const bool isKnown = std::any_of(matches.begin(), matches.end(), [&](const WindowMatch &match) {
            return match.window.windowID == window.windowID;
        });
        return window.applicationID != saved.appID || wasThere(window.windowID) || isKnown ||
               isOther(saved, window.windowID, now);
    });
    const bool isOnly = come.size() == 1 && std::count_if(m_saved.begin(), m_saved.end(), isLost) == 1;
    return isOnly ? WindowMatch{WindowMatch::Kind::One, come.first()} : matches.value(saved.id);
}

// A window that stands in the place of a saved one which is nowhere is that one: it shows another of its documents.
QUuid WindowMatching::ownerOf(const MovableWindow &window, const SavedWindow &saved, const Moment &now) const
{
    if (m_isInPlace(saved, window))
        return saved.id;
    const auto lost = std::find_if(m_saved.begin(), m_saved.end(), [&](const SavedWindow &other) {
        return other.appID == saved.appID && other.id != saved.id && m_isInPlace(other, window) &&
               !hasLikeness(other, now);
    });
    return lost == m_saved.end() ? saved.id : lost->id;
}

void WindowMatching::settle(const QList<MovableWindow> &live, const PlacesOfWindows &shown, const PlaceTest &isInPlace)
{
    m_isInPlace = isInPlace;
    const Moment now{live, shown};
    const WindowMatches matches = find(live, shown);
    QHash<quint32, QUuid> settled;
    for (const SavedWindow &saved : std::as_const(m_saved)) {
        const WindowMatch match = matches.value(saved.id);
        if (match.kind == WindowMatch::Kind::One)
            settled.insert(match.window.windowID, ownerOf(match.window, saved, now));
    }
    m_settled = settled;
    for (const MovableWindow &window : live)
        m_formerly.insert(window.windowID, shown.value(window.windowID));
}

} // namespace ardeno::WindowLayout
