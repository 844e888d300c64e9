// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/WindowTree.h"

#include "platform/linux/x11/windows/X11Property.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace ardeno {

namespace {

// How far below a frame its client may lie, and how many windows are looked at in all.
constexpr int deepestClient = 4;
constexpr qsizetype mostWindows = 20000;

struct Candidate {
    xcb_window_t window;
    xcb_window_t topLevel;
};

// One level of windows below top-level windows, asked for at once.
class Level final {
public:
    Level(const X11Connection &connection, std::vector<Candidate> candidates)
        : m_connection(connection), m_candidates(std::move(candidates))
    {
        for (const Candidate &candidate : m_candidates) {
            m_states.emplace_back(connection, candidate.window, X11Atom::WmState);
            m_trees.push_back(xcb_query_tree(connection.xcb(), candidate.window));
        }
    }

    // Enters the clients that are found on this level and returns the windows of the next one.
    std::vector<Candidate> read(QHash<xcb_window_t, WindowTree::Client> &found)
    {
        std::vector<Candidate> next;
        for (size_t i = 0; i < m_candidates.size(); ++i) {
            const Candidate candidate = m_candidates[i];
            const bool isClient = !m_states[i].cardinals().isEmpty();
            const X11Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(m_connection.xcb(), m_trees[i], nullptr));
            WindowTree::Client &client = found[candidate.topLevel];
            if (client.isManaged)
                continue;
            if (isClient)
                client = {candidate.window, true};
            else if (tree)
                appendChildren(*tree, candidate.topLevel, next);
        }
        std::erase_if(next, [&](const Candidate &candidate) { return found.value(candidate.topLevel).isManaged; });
        return next;
    }

private:
    static void appendChildren(const xcb_query_tree_reply_t &tree, xcb_window_t topLevel, std::vector<Candidate> &next)
    {
        const xcb_window_t *children = xcb_query_tree_children(&tree);
        for (int i = 0; i < xcb_query_tree_children_length(&tree); ++i)
            next.push_back({children[i], topLevel});
    }

    const X11Connection &m_connection;
    std::vector<Candidate> m_candidates;
    std::vector<X11Property> m_states;
    std::vector<xcb_query_tree_cookie_t> m_trees;
};

// The applications' windows as the tree itself shows them.
QList<xcb_window_t> mappedClients(const X11Connection &connection)
{
    const QList<xcb_window_t> all = WindowTree::topLevels(connection);
    std::vector<xcb_get_window_attributes_cookie_t> cookies;
    cookies.reserve(all.size());
    for (const xcb_window_t window : all)
        cookies.push_back(xcb_get_window_attributes(connection.xcb(), window));
    const QHash<xcb_window_t, WindowTree::Client> inside = WindowTree::clientsInside(connection, all);
    QList<xcb_window_t> found;
    for (qsizetype i = 0; i < all.size(); ++i) {
        const X11Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(connection.xcb(), cookies[i], nullptr));
        if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE ||
            attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY)
            continue;
        // Frames are popups in the server's eyes, too.
        const WindowTree::Client client = inside.value(all[i]);
        if (client.isManaged || !attributes->override_redirect)
            found.append(client.window);
    }
    return found;
}

bool holdsAll(const QList<xcb_window_t> &windows, const QList<xcb_window_t> &wanted)
{
    return std::all_of(wanted.begin(), wanted.end(), [&](xcb_window_t window) { return windows.contains(window); });
}

// The manager's windows in the order of their frames. Some managers write the order only when it changes.
QList<xcb_window_t> inTreeOrder(const X11Connection &connection, QList<xcb_window_t> listed)
{
    const QList<xcb_window_t> all = WindowTree::topLevels(connection);
    const QHash<xcb_window_t, WindowTree::Client> inside = WindowTree::clientsInside(connection, all);
    QList<xcb_window_t> ordered;
    for (const xcb_window_t topLevel : all) {
        const xcb_window_t client = inside.value(topLevel).window;
        if (listed.removeOne(client))
            ordered.append(client);
    }
    return listed + ordered;
}

} // namespace

// A window manager that has ended leaves its lists on the root window; only a living one owns the window it names.
bool WindowTree::hasManager(const X11Connection &connection)
{
    const auto check = X11Property(connection, connection.root(), X11Atom::NetSupportingWmCheck).cardinal();
    return check && X11Property(connection, *check, X11Atom::NetSupportingWmCheck).cardinal() == check;
}

QList<xcb_window_t> WindowTree::topLevels(const X11Connection &connection)
{
    const X11Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection.xcb(), xcb_query_tree(connection.xcb(), connection.root()), nullptr));
    if (!tree)
        return {};
    const xcb_window_t *children = xcb_query_tree_children(tree.get());
    return {children, children + xcb_query_tree_children_length(tree.get())};
}

QList<xcb_window_t> WindowTree::clients(const X11Connection &connection)
{
    if (hasManager(connection)) {
        X11Property stacking(connection, connection.root(), X11Atom::NetClientListStacking);
        X11Property list(connection, connection.root(), X11Atom::NetClientList);
        const auto stacked = stacking.cardinalsIfSet();
        const auto listed = list.cardinalsIfSet();
        if (stacked && holdsAll(*stacked, listed.value_or(QList<xcb_window_t>())))
            return *stacked;
        if (listed)
            return inTreeOrder(connection, *listed);
    }
    return mappedClients(connection);
}

QHash<xcb_window_t, WindowTree::Client> WindowTree::clientsInside(const X11Connection &connection,
                                                                  const QList<xcb_window_t> &topLevels)
{
    QHash<xcb_window_t, Client> found;
    std::vector<Candidate> candidates;
    for (const xcb_window_t window : topLevels) {
        found.insert(window, {window, false});
        candidates.push_back({window, window});
    }
    qsizetype looked = 0;
    for (int depth = 0; depth < deepestClient && !candidates.empty(); ++depth) {
        looked += static_cast<qsizetype>(candidates.size());
        if (looked > mostWindows)
            break;
        candidates = Level(connection, std::move(candidates)).read(found);
    }
    return found;
}

} // namespace ardeno
