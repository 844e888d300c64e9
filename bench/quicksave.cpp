// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/Bench.h"
#include "bench/windowStart.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <xcb/xcb.h>
#include <xcb/xcbext.h>

#include <array>
#include <cstdio>
#include <cstdlib>

// Usage: quicksave ARDENO TRIVIAL, on a desktop of its own:
//   tests/desktop/headless-desktop -- build/release/bench/bench_quicksave build/release/ardeno
//   build/release/bench/bench_trivial

namespace {

using namespace ardeno::bench;

// Presses keys as a keyboard does, by the XTEST extension.
class Keyboard final {
public:
    Keyboard() : m_connection(xcb_connect(nullptr, nullptr)) {}

    ~Keyboard() { xcb_disconnect(m_connection); }

    Keyboard(const Keyboard &) = delete;
    Keyboard &operator=(const Keyboard &) = delete;

    void pressHotKey()
    {
        constexpr std::array<uint8_t, 4> controlAltSuperS{37, 64, 133, 39};
        for (const uint8_t key : controlAltSuperS)
            send(XCB_KEY_PRESS, key);
        for (auto key = controlAltSuperS.rbegin(); key != controlAltSuperS.rend(); ++key)
            send(XCB_KEY_RELEASE, *key);
        xcb_flush(m_connection);
    }

private:
    void send(uint8_t type, uint8_t key)
    {
        // FakeInput: event, key, two bytes of nothing, time, then the parts that only pointers use.
        static xcb_extension_t extension = {"XTEST", 0};
        std::array<uint8_t, 36> request = {};
        request.at(4) = type;
        request.at(5) = key;
        const xcb_protocol_request_t protocol = {1, &extension, 2, 1};
        std::array<iovec, 3> parts = {};
        parts.at(2) = {request.data(), request.size()};
        xcb_send_request(m_connection, 0, &parts.at(2), &protocol);
    }

    xcb_connection_t *m_connection;
};

double secondsToPanel(const QString &program, Keyboard &keyboard)
{
    QProcess application;
    application.start(program, {"--background"});
    application.waitForStarted();
    QFile lock(qEnvironmentVariable("XDG_DATA_HOME") + "/Ardeno/lock");
    const QByteArray holder = QByteArray::number(application.processId());
    while (!lock.isOpen() || !lock.readAll().startsWith(holder)) {
        lock.close();
        lock.open(QIODevice::ReadOnly);
    }
    // A command is answered once the hot key is listened to.
    QProcess::execute(program, {"list"});
    const double seconds = secondsToPaintAfter([&] { keyboard.pressHotKey(); }, 400);
    application.kill();
    application.waitForFinished();
    return seconds;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (argc < 3) {
        std::fputs("Usage: quicksave ARDENO TRIVIAL\n", stderr);
        return 2;
    }
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit() + "/data");
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit() + "/config");
    constexpr int rounds = 12;
    Keyboard keyboard;
    std::vector<double> peers;
    std::vector<double> panels;
    for (int round = 0; round <= rounds; ++round) {
        const double peer = secondsToFirstPaint(QString::fromLocal8Bit(argv[2]));
        const double panel = secondsToPanel(QString::fromLocal8Bit(argv[1]), keyboard);
        if (round == 0)
            continue; // It only warms up.
        peers.push_back(peer);
        panels.push_back(panel);
    }
    Table table;
    const double peer = medianOf(peers);
    const double panel = medianOf(panels);
    table.add("hot key to painted panel / first paint of a trivial Qt window", milliseconds(panel), milliseconds(peer),
              panel / peer, 1.5);
    return table.finish();
}
