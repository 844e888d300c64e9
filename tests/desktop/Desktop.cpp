// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/desktop/Desktop.h"

#include <QTest>

#include <xcb/xcb.h>

#include <csignal>
#include <cstdlib>
#include <memory>
#include <unistd.h>

namespace ardeno::desktop_test {

namespace {

constexpr int deadline = 60000; // Milliseconds.

// A question to the X server beside the code under test.
class Probe final {
public:
    Probe() : m_connection(xcb_connect(nullptr, nullptr)) {}

    ~Probe() { xcb_disconnect(m_connection); }

    Probe(const Probe &) = delete;
    Probe &operator=(const Probe &) = delete;

    QList<quint32> visibleWindows(const QByteArray &titlePart)
    {
        QList<quint32> found;
        if (xcb_connection_has_error(m_connection) == 0)
            collect(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root, titlePart, 0, found);
        return found;
    }

private:
    template <typename T>
    using Reply = std::unique_ptr<T, decltype(&std::free)>;

    void collect(xcb_window_t window, const QByteArray &titlePart, int depth, QList<quint32> &found)
    {
        constexpr int deepest = 3;
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr), std::free);
        for (int i = 0; tree && i < xcb_query_tree_children_length(tree.get()); ++i) {
            const xcb_window_t child = xcb_query_tree_children(tree.get())[i];
            if (isVisible(child) && title(child).contains(titlePart))
                found.append(child);
            if (depth < deepest)
                collect(child, titlePart, depth + 1, found);
        }
    }

    bool isVisible(xcb_window_t window)
    {
        const Reply<xcb_get_window_attributes_reply_t> reply(
            xcb_get_window_attributes_reply(m_connection, xcb_get_window_attributes(m_connection, window), nullptr),
            std::free);
        return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    QByteArray title(xcb_window_t window)
    {
        constexpr uint32_t longest = 4096;
        const auto cookie =
            xcb_get_property(m_connection, 0, window, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY, 0, longest);
        const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr), std::free);
        if (!reply)
            return {};
        return {static_cast<const char *>(xcb_get_property_value(reply.get())),
                xcb_get_property_value_length(reply.get())};
    }

    xcb_connection_t *m_connection;
};

} // namespace

bool eventually(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, deadline);
}

QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(deadline);
    return QString::fromUtf8(process.readAllStandardOutput());
}

Application::Application(const QString &program, const QStringList &arguments)
{
    // A group of its own, so that what it starts can be ended with it.
    m_process.setChildProcessModifier([] { ::setpgid(0, 0); });
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(program, arguments);
    m_process.waitForStarted(deadline);
    m_group = m_process.processId();
}

Application::~Application()
{
    end();
}

quint32 Application::waitForWindow(const QString &titlePart)
{
    quint32 window = 0;
    eventually([&] {
        window = visibleWindows(titlePart).value(0);
        return window != 0 || m_process.state() == QProcess::NotRunning;
    });
    return window;
}

void Application::end()
{
    constexpr int grace = 5000; // Milliseconds.
    if (m_group == 0)
        return;
    ::kill(static_cast<pid_t>(-m_group), SIGTERM);
    if (!m_process.waitForFinished(grace)) {
        ::kill(static_cast<pid_t>(-m_group), SIGKILL);
        m_process.waitForFinished(deadline);
    }
    m_group = 0;
}

QStringList chromiumArguments(const QString &page)
{
    return {
        "--no-sandbox",
        "--disable-gpu",
        "--no-first-run",
        "--disable-background-networking",
        "--disable-sync",
        "--disable-component-update",
        "--password-store=basic",
        "--user-data-dir=" + qEnvironmentVariable("DESKTOP_DIR") + "/chromium",
        page,
    };
}

QList<quint32> visibleWindows(const QString &titlePart)
{
    return Probe().visibleWindows(titlePart.toUtf8());
}

void press(const QString &titlePart, const QString &keys)
{
    outputOf("wmctrl", {"-a", titlePart});
    eventually([&] { return outputOf("xdotool", {"getactivewindow", "getwindowname"}).contains(titlePart); });
    outputOf("xdotool", {"key", keys});
}

} // namespace ardeno::desktop_test
