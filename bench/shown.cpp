// SPDX-License-Identifier: GPL-3.0-or-later
// Captures the layout of the windows of this desktop with the folders and documents they show, against the layout alone
// and the picture of the screen, during which a save looks for them. Needs a desktop with applications.
#include "bench/Bench.h"
#include "capture/WindowLayout.h"
#include "platform/MakeDesktop.h"
#include "support/BlockOn.h"

#include <QCoreApplication>

#include <cstdio>

using namespace ardeno;
using namespace ardeno::bench;

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const Desktop desktop = makeDesktop();
    QList<SavedApp> apps;
    for (const WindowInfo &window : desktop.windowServer->windows())
        apps.append({window.applicationID.value_or(QString()), window.applicationName});
    QList<SavedWindow> layout;
    const auto windowsOnly = [&] { WindowLayout::windows(apps, *desktop.windowServer, 0); };
    const auto whole = [&] { layout = blockOn(WindowLayout::capture(apps, desktop, {}, 0)); };
    const double first = secondsOf(whole);
    constexpr int rounds = 21;
    const std::vector<double> medians = interleavedMedians(rounds, {windowsOnly, whole});
    for (const SavedWindow &window : layout) {
        const QString path = window.locationURL.value_or(window.documentURL.value_or("-"));
        std::printf("%-24s %-40s %s\n", qPrintable(window.appID), qPrintable(window.title), qPrintable(path));
    }
    std::printf("first %s, windows alone %s\n", qPrintable(milliseconds(first)), qPrintable(milliseconds(medians[0])));
    Table table;
    constexpr double limit = 0.050; // Seconds; a picture takes longer.
    table.add("folders and documents", milliseconds(medians[1]), milliseconds(limit), medians[1] / limit, 1);
    return layout.isEmpty() ? 2 : table.finish();
}
