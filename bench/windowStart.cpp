// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/windowStart.h"

#include <QDir>
#include <QFile>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>

namespace ardeno::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int leastWindowWidth = 500; // Pixels.

// Watches the screen for the first window that something is drawn into.
class FirstPaint final {
public:
    explicit FirstPaint(int leastWidth) : m_connection(xcb_connect(nullptr, nullptr)), m_leastWidth(leastWidth)
    {
        const xcb_screen_t *const screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        const xcb_query_extension_reply_t *const damage = xcb_get_extension_data(m_connection, &xcb_damage_id);
        m_damageEvent = damage->first_event;
        std::free(xcb_damage_query_version_reply(m_connection, xcb_damage_query_version(m_connection, 1, 1), nullptr));
        const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, screen->root, XCB_CW_EVENT_MASK, &events);
        // The answer comes after the request was carried out.
        std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    ~FirstPaint() { xcb_disconnect(m_connection); }

    FirstPaint(const FirstPaint &) = delete;
    FirstPaint &operator=(const FirstPaint &) = delete;

    void wait()
    {
        for (;;) {
            const std::unique_ptr<xcb_generic_event_t, void (*)(void *)> event(xcb_wait_for_event(m_connection),
                                                                               std::free);
            if (!event)
                std::abort();
            const int type = event->response_type & 0x7f;
            if (type == XCB_CREATE_NOTIFY)
                watch(*reinterpret_cast<xcb_create_notify_event_t *>(event.get()));
            else if (type == m_damageEvent)
                return;
        }
    }

private:
    void watch(const xcb_create_notify_event_t &created)
    {
        // Helper windows of toolkits and frames of the window manager are not meant.
        if (created.override_redirect || created.width < m_leastWidth)
            return;
        xcb_damage_create(m_connection, xcb_generate_id(m_connection), created.window,
                          XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
        xcb_flush(m_connection);
    }

    xcb_connection_t *m_connection;
    int m_leastWidth;
    int m_damageEvent = 0;
};

pid_t startProgram(const QString &program)
{
    const QByteArray path = QFile::encodeName(program);
    const pid_t child = ::fork();
    if (child == 0) {
        ::execl(path.constData(), path.constData(), nullptr);
        ::_exit(127);
    }
    return child;
}

void endProgram(pid_t child)
{
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

// The sum of the numbers behind this key in a file of lines like "Pss:   12 kB".
double sumOf(const QString &path, const QByteArray &key)
{
    QFile file(path);
    double sum = 0;
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith(key))
                sum += line.mid(key.size()).simplified().split(' ').first().toDouble();
        }
    }
    return sum;
}

double switchesOf(const QString &process)
{
    double sum = 0;
    for (const QString &thread : QDir(process + "/task").entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        sum += sumOf(process + "/task/" + thread + "/status", "voluntary_ctxt_switches:");
    return sum;
}

} // namespace

double secondsToPaintAfter(const std::function<void()> &call, int leastWidth)
{
    FirstPaint paint(leastWidth);
    const Clock::time_point start = Clock::now();
    call();
    paint.wait();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

double secondsToFirstPaint(const QString &program)
{
    pid_t child = 0;
    const double seconds = secondsToPaintAfter([&] { child = startProgram(program); }, leastWindowWidth);
    endProgram(child);
    return seconds;
}

AtRest measureAtRest(const QString &program)
{
    constexpr unsigned settling = 6; // Seconds.
    constexpr unsigned watched = 10;
    FirstPaint paint(leastWindowWidth);
    const pid_t child = startProgram(program);
    paint.wait();
    ::sleep(settling);
    const QString process = QString("/proc/%1").arg(child);
    const double before = switchesOf(process);
    ::sleep(watched);
    const AtRest rest{.bytes = sumOf(process + "/smaps_rollup", "Pss:") * 1024,
                      .wakeUps = (switchesOf(process) - before) / watched};
    endProgram(child);
    return rest;
}

} // namespace ardeno::bench
