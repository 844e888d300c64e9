// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/LiveWindows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace ardeno {

namespace {

// Only the letters: counters and clocks in titles change while the browser is not looking.
QString letters(QStringView title)
{
    QString kept;
    std::copy_if(title.begin(), title.end(), std::back_inserter(kept),
                 [](QChar character) { return character.isLetter(); });
    return kept;
}

// What stands in a window's title behind the name of the page: the browser's own name, after a dash. Absent when the
// title is that of another page.
std::optional<QString> endingBehind(const QString &pageTitle, const QString &windowTitle)
{
    const QString page = letters(pageTitle);
    if (page.isEmpty())
        return std::nullopt;
    qsizetype end = windowTitle.size();
    if (letters(windowTitle) != page) {
        end = -1;
        for (const QStringView separator : {u" - ", u" — ", u" – "})
            end = std::max(end, windowTitle.lastIndexOf(separator));
    }
    const bool isPage = end > 0 && letters(QStringView(windowTitle).first(end)) == page;
    return isPage ? std::optional(windowTitle.mid(end)) : std::nullopt;
}

bool showsTitle(const LiveWindow &live, const ListedTab &tab)
{
    return endingBehind(shownTitle(tab), live.title).has_value();
}

// Whether the same window can have both rectangles: browsers and window managers do not agree on what belongs to a
// window (decoration, shadows), but agree that it is the same at the left and at the right. A shifted one is another.
bool isSamePlace(const WindowRect &live, const WindowRect &written, double slack)
{
    constexpr double widest = 64; // Of a title bar or a shadow.
    const double left = live.x - written.x;
    const double right = written.maxX() - live.maxX();
    const double top = live.y - written.y;
    const double bottom = written.maxY() - live.maxY();
    const bool isShifted = std::min(top, bottom) < -slack && std::max(top, bottom) > slack;
    return std::abs(left - right) <= 2 * slack && !isShifted &&
           std::max({std::abs(left), std::abs(top), std::abs(bottom)}) <= widest;
}

WindowRect scaled(const WindowRect &rect, double place, double size)
{
    return {rect.x * place, rect.y * place, rect.width * size, rect.height * size};
}

// Browsers write points; where those are not pixels, every window is larger by the same factor, which may be any. Some
// count only sizes in points.
bool hasPlace(const WindowRect &rect, const WindowRect &written)
{
    constexpr double smallest = 0.5;
    constexpr double largest = 8;
    const double factor = rect.width / written.width;
    if (isSamePlace(rect, written, 2))
        return true;
    const double slack = 2 + 2 * std::abs(factor - 1); // Each number was rounded, and the factor comes from two.
    return factor >= smallest && factor <= largest &&
           (isSamePlace(rect, scaled(written, factor, factor), slack) ||
            isSamePlace(rect, scaled(written, 1, factor), slack));
}

// Whatever was done with it since: the place of a window that is maximised or minimised is the one it comes back to.
bool hasFrame(const LiveWindow &live, const ListedWindow &session)
{
    return session.frame && session.frame->width > 0 &&
           (hasPlace(live.frame, *session.frame) || hasPlace(live.client, *session.frame));
}

bool isInPlace(const LiveWindow &live, const ListedWindow &session)
{
    return live.isAtFrame && session.isAtFrame && hasFrame(live, session);
}

bool areBothPutAside(const LiveWindow &live, const ListedWindow &session)
{
    return !live.isAtFrame && !session.isAtFrame;
}

bool showsPage(const LiveWindow &live, const ListedWindow &session)
{
    return session.selectedTab >= 0 && session.selectedTab < session.tabs.size() &&
           showsTitle(live, session.tabs[session.selectedTab]);
}

// The user may have turned to another of its pages since.
bool hasPage(const LiveWindow &live, const ListedWindow &session)
{
    return std::any_of(session.tabs.begin(), session.tabs.end(),
                       [&](const ListedTab &tab) { return showsTitle(live, tab); });
}

// Pairs the windows of the session with live ones, the surest pairs first.
class Pairing final {
public:
    Pairing(const QList<ListedWindow> &session, const QList<LiveWindow> &live)
        : m_session(session), m_live(live), m_isKept(session.size()), m_isTaken(live.size())
    {
    }

    // Those of what is written now, or the others.
    void pairAll(bool areCurrent)
    {
        m_areCurrent = areCurrent;
        pair([](const LiveWindow &a, const ListedWindow &b) { return isInPlace(a, b) && showsPage(a, b); });
        pair(isInPlace);
        pair(showsPage);
        pair(hasPage);
        pair(areBothPutAside);
        pair(hasFrame);
    }

    bool isKept(qsizetype window) const { return m_isKept[window]; }

    // Whether there is a live window that is none of the session's.
    bool hasLeft() const { return std::find(m_isTaken.begin(), m_isTaken.end(), false) != m_isTaken.end(); }

private:
    template <typename Test>
    void pair(Test test)
    {
        for (qsizetype window = 0; window < m_session.size(); ++window) {
            if (m_session[window].isCurrent != m_areCurrent)
                continue;
            for (qsizetype live = 0; live < m_live.size() && !m_isKept[window]; ++live) {
                if (!m_isTaken[live] && test(m_live[live], m_session[window]))
                    m_isKept[window] = m_isTaken[live] = true;
            }
        }
    }

    const QList<ListedWindow> &m_session;
    const QList<LiveWindow> &m_live;
    std::vector<bool> m_isKept;
    std::vector<bool> m_isTaken;
    bool m_areCurrent = true;
};

// Finds for windows of the session the only live one that fits, which fits no other one of those that are left.
class Recognition final {
public:
    Recognition(const QList<ListedWindow> &session, const QList<LiveWindow> &live)
        : m_session(session), m_left(live), m_found(session.size())
    {
    }

    template <typename Test>
    void recognise(Test fits)
    {
        for (qsizetype window = 0; window < m_session.size(); ++window) {
            const auto fitsWindow = [&](const LiveWindow &live) { return fits(live, m_session[window]); };
            if (m_found[window] || std::count_if(m_left.begin(), m_left.end(), fitsWindow) != 1)
                continue;
            const auto found = std::find_if(m_left.begin(), m_left.end(), fitsWindow);
            if (hasRival(window, [&](const ListedWindow &other) { return fits(*found, other); }))
                continue;
            m_found[window] = *found;
            m_left.erase(found);
        }
    }

    const QList<std::optional<LiveWindow>> &found() const { return m_found; }

private:
    template <typename Test>
    bool hasRival(qsizetype window, Test fits) const
    {
        for (qsizetype other = 0; other < m_session.size(); ++other) {
            if (other != window && !m_found[other] && fits(m_session[other]))
                return true;
        }
        return false;
    }

    const QList<ListedWindow> &m_session;
    QList<LiveWindow> m_left;
    QList<std::optional<LiveWindow>> m_found;
};

} // namespace

QString shownTitle(const ListedTab &tab)
{
    if (!tab.title.isEmpty())
        return tab.title;
    const qsizetype scheme = tab.url.indexOf("://");
    return scheme < 0 ? tab.url : tab.url.mid(scheme + 3);
}

QList<WindowFate> fates(const QList<ListedWindow> &session, const QList<LiveWindow> &live)
{
    Pairing pairing(session, live);
    pairing.pairAll(true);
    pairing.pairAll(false);
    QList<WindowFate> fates;
    for (qsizetype i = 0; i < session.size(); ++i) {
        const bool mayBeOpen = pairing.hasLeft();
        fates.append(pairing.isKept(i) ? WindowFate::Open : mayBeOpen ? WindowFate::Unknown : WindowFate::Closed);
    }
    return fates;
}

QHash<quint32, ShownPage> shownPages(const QList<ListedWindow> &session, const QList<LiveWindow> &live)
{
    QHash<quint32, ShownPage> pages;
    for (const LiveWindow &window : live) {
        const auto shown = std::find_if(session.begin(), session.end(),
                                        [&](const ListedWindow &written) { return showsPage(window, written); });
        if (shown == session.end())
            continue;
        const QString name = shownTitle(shown->tabs[shown->selectedTab]);
        ShownPage page{.title = name + endingBehind(name, window.title).value_or(QString())};
        for (const ListedWindow &written : session) {
            for (const ListedTab &tab : written.tabs) {
                if (showsTitle(window, tab))
                    page.addresses.append(tab.url);
            }
        }
        pages.insert(window.windowID, page);
    }
    return pages;
}

bool isMarkedPrivate(const QString &title)
{
    // In every language an ordinary window's title ends with the name; a private one's says so behind it.
    constexpr QLatin1String name("Mozilla Firefox");
    return title.contains(name) && !title.endsWith(name);
}

QList<std::optional<LiveWindow>> certainWindows(const QList<ListedWindow> &session, const QList<LiveWindow> &live)
{
    Recognition recognition(session, live);
    recognition.recognise(
        [](const LiveWindow &a, const ListedWindow &b) { return isInPlace(a, b) && showsPage(a, b); });
    recognition.recognise(isInPlace);
    recognition.recognise(showsPage);
    recognition.recognise(areBothPutAside);
    recognition.recognise(hasFrame);
    if (session.size() == live.size()) // The last of both are each other.
        recognition.recognise([](const LiveWindow &, const ListedWindow &) { return true; });
    return recognition.found();
}

} // namespace ardeno
