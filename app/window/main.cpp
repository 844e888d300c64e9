// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/EndSignals.h"
#include "app/window/SingleInstance.h"
#include "app/window/Successor.h"
#include "app/window/WindowApplication.h"
#include "ui/controls/Sheet.h"
#include "ui/theme/AppStyle.h"
#include "ui/theme/AppearanceSettings.h"
#include "words/Words.h"

#include <QApplication>

#include <csignal>

int main(int argc, char **argv)
{
    using namespace ardeno;
    std::signal(SIGPIPE, SIG_IGN);
    QApplication::setStyle(new AppStyle);
    QApplication application(argc, argv);
    QApplication::setApplicationName("ardeno");
    QApplication::setApplicationVersion(ARDENO_VERSION);
    QApplication::setDesktopFileName("org.ardeno.Ardeno");
    const Words words(Words::Language::OfUser);
    if (const auto predecessor = Successor::predecessor(QApplication::arguments()))
        Successor::waitForEnd(*predecessor);
    SingleInstance instance;
    if (!instance.claim())
        return 0;
    const EndSignals signals([] { QApplication::quit(); });
    installSheetAccessibility();
    const AppearanceSettings appearance;
    WindowApplication window(instance);
    window.start();
    return QApplication::exec();
}
