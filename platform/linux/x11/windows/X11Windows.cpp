// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11Windows.h"

#include "platform/linux/x11/windows/X11Property.h"
#include "platform/linux/x11/windows/X11WindowStates.h"

#include <array>
#include <optional>
#include <vector>

namespace ardeno {

namespace {

using X11WindowStates::allDesktops;

// Widths at the left, right, top and bottom.
struct Extents {
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
};

std::optional<Extents> extents(X11Property &property)
{
    const QList<quint32> values = property.cardinals();
    if (values.size() < 4)
        return std::nullopt;
    return Extents{double(values[0]), double(values[1]), double(values[2]), double(values[3])};
}

// What applies to all windows at this moment.
struct Session {
    explicit Session(const X11Connection &connection)
    {
        X11Property current(connection, connection.root(), X11Atom::NetCurrentDesktop);
        X11Property showing(connection, connection.root(), X11Atom::NetShowingDesktop);
        currentDesktop = current.cardinal();
        isDesktopShown = showing.cardinal().value_or(0) != 0;
    }

    std::optional<quint32> currentDesktop;
    bool isDesktopShown = false; // All windows have been put aside.
};

// The questions about one window; asked when made, answered when read.
class Question final {
public:
    Question(const X11Connection &connection, xcb_window_t window)
        : m_connection(connection),
          m_window(window),
          m_attributes(xcb_get_window_attributes(connection.xcb(), window)),
          m_geometry(xcb_get_geometry(connection.xcb(), window)),
          m_origin(xcb_translate_coordinates(connection.xcb(), window, connection.root(), 0, 0)),
          m_name(connection, window, X11Atom::NetWmName),
          m_oldName(connection, window, xcb_atom_t(XCB_ATOM_WM_NAME)),
          m_state(connection, window, X11Atom::NetWmState),
          m_type(connection, window, X11Atom::NetWmWindowType),
          m_leader(connection, window, xcb_atom_t(XCB_ATOM_WM_TRANSIENT_FOR)),
          m_desktop(connection, window, X11Atom::NetWmDesktop),
          m_decoration(connection, window, X11Atom::NetFrameExtents),
          m_shadow(connection, window, X11Atom::GtkFrameExtents)
    {
    }

    X11WindowFacts read(const Session &session)
    {
        const auto told = m_state.cardinalsIfSet();
        const QList<quint32> state = told.value_or(QList<quint32>());
        const auto desktop = m_desktop.cardinal();
        X11WindowFacts facts{.window = m_window};
        facts.title = readTitle();
        facts.client = readClient();
        facts.frame = facts.client ? std::optional(readFrame(*facts.client)) : std::nullopt;
        facts.isAtFrame = readIsAtFrame(state);
        facts.isOnScreen = readIsOnScreen(session, state, desktop);
        facts.isShaded = state.contains(m_connection.atom(X11Atom::NetWmStateShaded));
        if (told || desktop)
            facts.states = readStates(session, state, desktop);
        if (desktop && *desktop != allDesktops)
            facts.desktop = desktop;
        const auto type = readType();
        facts.isOrdinary = !type || *type == X11Atom::NetWmWindowTypeNormal || isDialogType(*type);
        // One that belongs to the root window belongs to all windows of its application.
        const xcb_window_t leader = m_leader.cardinal().value_or(XCB_NONE);
        facts.isDialog = leader != XCB_NONE && (leader != m_connection.root() || (type && isDialogType(*type)));
        m_isMaybeDialog = type && isDialogType(*type);
        return facts;
    }

    // Whether its type is that of a dialog, which is the main window of some applications. Known once it was read.
    bool isMaybeDialog() const { return m_isMaybeDialog; }

private:
    QString readTitle()
    {
        const auto name = m_name.text();
        const auto oldName = m_oldName.text();
        return name ? *name : oldName.value_or(QString());
    }

    std::optional<WindowRect> readClient()
    {
        const X11Reply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(m_connection.xcb(), m_geometry, nullptr));
        const X11Reply<xcb_translate_coordinates_reply_t> origin(
            xcb_translate_coordinates_reply(m_connection.xcb(), m_origin, nullptr));
        if (!geometry || !origin)
            return std::nullopt;
        m_border = geometry->border_width;
        return WindowRect{double(origin->dst_x), double(origin->dst_y), double(geometry->width),
                          double(geometry->height)};
    }

    WindowRect readFrame(const WindowRect &client)
    {
        // Nobody decorates a window without a window manager, but it may have a border of its own.
        const Extents around = extents(m_decoration).value_or(Extents{m_border, m_border, m_border, m_border});
        const Extents shadow = extents(m_shadow).value_or(Extents{});
        return {client.x - around.left + shadow.left, client.y - around.top + shadow.top,
                client.width + around.left + around.right - shadow.left - shadow.right,
                client.height + around.top + around.bottom - shadow.top - shadow.bottom};
    }

    bool readIsAtFrame(const QList<quint32> &state) const
    {
        const auto has = [&](X11Atom atom) { return state.contains(m_connection.atom(atom)); };
        const bool isMaximised = has(X11Atom::NetWmStateMaximizedVert) && has(X11Atom::NetWmStateMaximizedHorz);
        return !isMaximised && !has(X11Atom::NetWmStateFullscreen) && !has(X11Atom::NetWmStateHidden);
    }

    // Windows that have all been put aside are not minimised, whatever they say.
    QList<QString> readStates(const Session &session, const QList<quint32> &state, std::optional<quint32> desktop) const
    {
        QList<QString> words = X11WindowStates::words(m_connection, state);
        if (session.isDesktopShown)
            words.removeAll(WindowStates::minimised);
        if (desktop == allDesktops && !words.contains(WindowStates::onAllDesktops))
            words.append(WindowStates::onAllDesktops);
        return words;
    }

    bool readIsOnScreen(const Session &session, const QList<quint32> &state, std::optional<quint32> desktop)
    {
        const X11Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(m_connection.xcb(), m_attributes, nullptr));
        if (!attributes || state.contains(m_connection.atom(X11Atom::NetWmStateHidden)))
            return false;
        if (desktop && session.currentDesktop && *desktop != allDesktops && *desktop != *session.currentDesktop)
            return false;
        // Of a window that is rolled up only the title bar is mapped.
        const bool isShaded = state.contains(m_connection.atom(X11Atom::NetWmStateShaded));
        return attributes->map_state == XCB_MAP_STATE_VIEWABLE || (isShaded && !session.isDesktopShown);
    }

    static bool isDialogType(X11Atom type) { return type == X11Atom::NetWmWindowTypeDialog; }

    // Window managers go by the first type that they know.
    std::optional<X11Atom> readType()
    {
        static constexpr std::array known = {
            X11Atom::NetWmWindowTypeNormal,  X11Atom::NetWmWindowTypeDialog, X11Atom::NetWmWindowTypeDesktop,
            X11Atom::NetWmWindowTypeDock,    X11Atom::NetWmWindowTypeSplash, X11Atom::NetWmWindowTypeToolbar,
            X11Atom::NetWmWindowTypeUtility, X11Atom::NetWmWindowTypeMenu,   X11Atom::NetWmWindowTypeNotification,
        };
        for (const quint32 type : m_type.cardinals()) {
            for (const X11Atom name : known) {
                if (type == m_connection.atom(name))
                    return name;
            }
        }
        return std::nullopt;
    }

    const X11Connection &m_connection;
    xcb_window_t m_window;
    double m_border = 0;
    xcb_get_window_attributes_cookie_t m_attributes;
    xcb_get_geometry_cookie_t m_geometry;
    xcb_translate_coordinates_cookie_t m_origin;
    X11Property m_name;
    X11Property m_oldName;
    X11Property m_state;
    X11Property m_type;
    X11Property m_leader;
    X11Property m_desktop;
    X11Property m_decoration;
    X11Property m_shadow;
    bool m_isMaybeDialog = false;
};

// Windows of one connection have numbers of one range.
bool isSameClient(const X11Connection &connection, xcb_window_t a, xcb_window_t b)
{
    const uint32_t mask = xcb_get_setup(connection.xcb())->resource_id_mask;
    return (a & ~mask) == (b & ~mask);
}

} // namespace

QList<X11WindowFacts> readWindowFacts(const X11Connection &connection, const QList<xcb_window_t> &windows)
{
    const Session session(connection);
    std::vector<Question> questions;
    questions.reserve(windows.size());
    for (const xcb_window_t window : windows)
        questions.emplace_back(connection, window);
    QList<X11WindowFacts> facts;
    for (Question &question : questions)
        facts.append(question.read(session));
    const auto isMainOf = [&](qsizetype dialog, qsizetype other) {
        return other != dialog && facts[other].isOrdinary && !facts[other].isDialog &&
               !questions[size_t(other)].isMaybeDialog() &&
               isSameClient(connection, facts[other].window, facts[dialog].window);
    };
    for (qsizetype i = 0; i < facts.size(); ++i) {
        for (qsizetype other = 0; questions[size_t(i)].isMaybeDialog() && other < facts.size(); ++other)
            facts[i].isDialog = facts[i].isDialog || isMainOf(i, other);
    }
    return facts;
}

} // namespace ardeno
