// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BusClient.h"
#include "app/CommandStore.h"
#include "app/EndRequest.h"
#include "app/WriteSignals.h"
#include "app/window/Relaunch.h"
#include "app/window/WindowApplication.h"
#include "platform/MakeDesktop.h"
#include "ui/theme/AppStyle.h"
#include "words/Words.h"

#include <QApplication>

namespace {

using namespace ardeno;

// The application that has the name already is the one; absent when it does not answer.
std::optional<ExitStatus> handOver(bool isBackground)
{
    StandardOutput out;
    if (!isBackground)
        return BusClient::showWindow(out);
    try {
        BusClient::refuseStranger();
        return ExitStatus::Done;
    } catch (const Failure &failure) {
        return report(out, failure);
    }
}

int run(bool isBackground)
{
    const QDBusConnection connection = QDBusConnection::sessionBus();
    const bool hasBus = connection.isConnected();
    if (isBackground && !hasBus) {
        StandardOutput out;
        return static_cast<int>(
            report(out, notAvailable("There is no session bus, over which Ardeno could be reached.")));
    }
    BusService bus(connection);
    using Reach = WindowApplication::Reach;
    WindowApplication application(bus, hasBus ? Reach::Bus : Reach::WindowAlone);
    if (hasBus && !bus.begin(application.actions())) {
        if (const auto status = handOver(isBackground))
            return static_cast<int>(*status);
    }
    const EndRequest request(connection, [&application] { application.end(); });
    if (isBackground)
        application.startInBackground();
    else
        application.startWithWindow();
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    takeWriteSignals();
    QApplication::setStyle(new AppStyle);
    QApplication application(argc, argv);
    QApplication::setApplicationName("ardeno");
    QApplication::setApplicationVersion(ARDENO_VERSION);
    QApplication::setDesktopFileName("org.ardeno.Ardeno");
    QApplication::setQuitOnLastWindowClosed(false);
    if (const auto predecessor = Relaunch::predecessor(QApplication::arguments()))
        waitForProcessEnd(*predecessor, std::chrono::seconds(20));
    const Words words(Words::Language::OfUser);
    return run(QApplication::arguments().contains("--background"));
}
