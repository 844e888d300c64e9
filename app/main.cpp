// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CommandLine.h"
#include "app/OpenWindow.h"
#include "platform/MakeDesktop.h"
#include "words/Words.h"

#include <QCoreApplication>

#include <csignal>
#include <string_view>

int main(int argc, char **argv)
{
    using namespace ardeno;
    // A closed pipe is an error of writing, not the end of a save.
    std::signal(SIGPIPE, SIG_IGN);
    // Before anything else is made, since the program of the display starts anew.
    if (argc == 1)
        return static_cast<int>(openWindow());
    if (argc == 2 && argv[1] == std::string_view("--background") && isDisplayReachable())
        return static_cast<int>(becomeWindowProgram("--background"));
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("ardeno");
    QCoreApplication::setApplicationVersion(ARDENO_VERSION);
    const Words words(Words::Language::English); // As programs that read the output expect.
    return static_cast<int>(runCommandLine(QCoreApplication::arguments().mid(1)));
}
