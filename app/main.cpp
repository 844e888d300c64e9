// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CommandLine.h"
#include "app/OpenWindow.h"
#include "words/Words.h"

#include <QCoreApplication>

#include <csignal>

int main(int argc, char **argv)
{
    // A closed pipe is an error of writing, not the end of a save.
    std::signal(SIGPIPE, SIG_IGN);
    // Before anything else is made, since the window's program starts anew.
    if (argc == 1)
        return static_cast<int>(ardeno::openWindow());
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("ardeno");
    QCoreApplication::setApplicationVersion(ARDENO_VERSION);
    const ardeno::Words words(ardeno::Words::Language::English); // As programs that read the output expect.
    return static_cast<int>(ardeno::runCommandLine(QCoreApplication::arguments().mid(1)));
}
