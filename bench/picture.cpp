// SPDX-License-Identifier: GPL-3.0-or-later
// Takes one screenshot and ends, as a command does: picture FILE [EXCLUDED APPLICATION…]. See picture.sh.
#include "capture/CaptureService.h"
#include "platform/linux/x11/pictures/X11ScreenCapture.h"
#include "support/Failure.h"

#include <QCoreApplication>

#include <cstdio>

using namespace ardeno;

namespace {

// Quits with 0 when the picture has been written.
QCoro::Task<void> take(CaptureService &service, QString path, QSet<QString> excluded)
{
    int status = 0;
    try {
        co_await service.screenshot(path, excluded);
    } catch (const Failure &failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        status = 1;
    }
    QCoreApplication::exit(status);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2)
        return 2;
    X11ScreenCapture screen("org.ardeno.Ardeno");
    CaptureService service(screen);
    const QStringList excluded = arguments.mid(2);
    QMetaObject::invokeMethod(
        &application, [&] { take(service, arguments[1], QSet<QString>(excluded.cbegin(), excluded.cend())); },
        Qt::QueuedConnection);
    return QCoreApplication::exec();
}
