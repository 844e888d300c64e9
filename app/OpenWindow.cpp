// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/OpenWindow.h"

#include "app/Output.h"
#include "platform/MakeDesktop.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace ardeno {

namespace {

// It stands beside this program.
QString windowProgram()
{
    return QFileInfo(QFile::symLinkTarget("/proc/self/exe")).path() + "/ardeno-window";
}

} // namespace

ExitStatus openWindow()
{
    if (!isDisplayReachable()) {
        printError(u"There is no display to open a window on. See ardeno --help for what works without one."_qs);
        return ExitStatus::NotAvailable;
    }
    return becomeWindowProgram();
}

ExitStatus becomeWindowProgram(const char *argument)
{
    const QByteArray program = QFile::encodeName(windowProgram());
    ::execl(program.constData(), "ardeno", argument, nullptr);
    printError(u"The window could not be opened: “%1”: %2"_qs.arg(QFile::decodeName(program),
                                                                  QString::fromLocal8Bit(std::strerror(errno))));
    return ExitStatus::Failed;
}

} // namespace ardeno
