// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/common/LiveWindows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
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

// Whether a window's title is that of the page it shows, before the name of the browser.
bool showsTitle(const QString &windowTitle, const QString &pageTitle)
{
    const QString page = letters(pageTitle);
    if (page.isEmpty())
        return false;
    for (const QStringView separator : {u" - ", u" — ", u" – "}) {
        for (qsizetype end = windowTitle.indexOf(separator); end >= 0; end = windowTitle.indexOf(separator, end + 1)) {
            if (letters(QStringView(windowTitle).first(end)) == page)
                return true;
        }
    }
    return letters(windowTitle) == page;
}

// Whether the same window can have both rectangles: browsers and window managers do not agree on what belongs to a
// window (decoration, shadows), but agree that it is the same at the left and at the right. A shifted one is another.
bool isSamePlace(const WindowRect &live, const WindowRect &session, double scale)
{
    constexpr double slack = 2;
    constexpr double widest = 64; // Of a title bar or a shadow.
    const double left = live.x - session.x * scale;
    const double right = session.maxX() * scale - live.maxX();
    const double top = live.y - session.y * scale;
    const double bottom = session.maxY() * scale - live.maxY();
    const bool isShifted = std::min(top, bottom) < -slack && std::max(top, bottom) > slack;
    return std::abs(left - right) <= slack && !isShifted &&
           std::max({std::abs(left), std::abs(top), std::abs(bottom)}) <= widest;
}

bool isInPlace(const LiveWindow &live, const SessionWindow &session)
{
    // Browsers write points; where those are not pixels, every window is larger by the same factor.
    constexpr std::array scales = {1.0, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0};
    return session.frame && session.isAtFrame && std::any_of(scales.begin(), scales.end(), [&](double scale) {
               return isSamePlace(live.frame, *session.frame, scale);
           });
}

bool showsPage(const LiveWindow &live, const SessionWindow &session)
{
    if (session.selectedTab < 0 || session.selectedTab >= session.tabs.size())
        return false;
    return showsTitle(live.title, shownTitle(session.tabs[session.selectedTab]));
}

// Pairs every window of the session with a live one, the surest pairs first.
class Pairing final {
public:
    Pairing(const QList<SessionWindow> &session, const QList<LiveWindow> &live)
        : m_session(session), m_live(live), m_isKept(session.size()), m_isTaken(live.size())
    {
    }

    template <typename Test>
    void pair(Test test)
    {
        for (qsizetype window = 0; window < m_session.size(); ++window) {
            for (qsizetype live = 0; live < m_live.size() && !m_isKept[window]; ++live) {
                if (!m_isTaken[live] && test(m_live[live], m_session[window]))
                    m_isKept[window] = m_isTaken[live] = true;
            }
        }
    }

    QSet<quint32> taken() const
    {
        QSet<quint32> taken;
        for (qsizetype live = 0; live < m_live.size(); ++live) {
            if (m_isTaken[live])
                taken.insert(m_live[live].windowID);
        }
        return taken;
    }

    QList<SessionWindow> kept() const
    {
        QList<SessionWindow> kept;
        for (qsizetype window = 0; window < m_session.size(); ++window) {
            if (m_isKept[window])
                kept.append(m_session[window]);
        }
        return kept;
    }

private:
    const QList<SessionWindow> &m_session;
    const QList<LiveWindow> &m_live;
    std::vector<bool> m_isKept;
    std::vector<bool> m_isTaken;
};

} // namespace

QString shownTitle(const SessionTab &tab)
{
    if (!tab.title.isEmpty())
        return tab.title;
    const qsizetype scheme = tab.url.indexOf("://");
    return scheme < 0 ? tab.url : tab.url.mid(scheme + 3);
}

QList<SessionWindow> withoutGhosts(const QList<SessionWindow> &session, const QList<LiveWindow> &live)
{
    Pairing pairing(session, live);
    pairing.pair([](const LiveWindow &a, const SessionWindow &b) { return isInPlace(a, b) && showsPage(a, b); });
    pairing.pair(isInPlace);
    pairing.pair(showsPage);
    // A maximised window whose title has changed cannot be told from another one. It is kept while there is a window
    // that it may be: a page too many is better than a lost one.
    pairing.pair([](const LiveWindow &, const SessionWindow &b) { return !b.isAtFrame || !b.frame; });
    return pairing.kept();
}

QSet<quint32> windowsOfPages(const QList<SessionWindow> &session, const QList<LiveWindow> &live)
{
    Pairing pairing(session, live);
    pairing.pair(showsPage);
    return pairing.taken();
}

std::optional<LiveWindow> certainWindow(const SessionWindow &window, const QList<SessionWindow> &session,
                                        const QList<LiveWindow> &live)
{
    // By title and place, else by the title alone; no other window of the session may fit as well.
    const auto inPlace = [](const LiveWindow &a, const SessionWindow &b) { return isInPlace(a, b) && showsPage(a, b); };
    for (const auto &fits : {std::function<bool(const LiveWindow &, const SessionWindow &)>(inPlace),
                             std::function<bool(const LiveWindow &, const SessionWindow &)>(showsPage)}) {
        QList<LiveWindow> found = live;
        found.removeIf([&](const LiveWindow &candidate) { return !fits(candidate, window); });
        if (found.isEmpty())
            continue;
        const auto rivals = std::count_if(session.begin(), session.end(),
                                          [&](const SessionWindow &other) { return fits(found.first(), other); });
        return found.size() == 1 && rivals == 1 ? std::optional(found.first()) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace ardeno
