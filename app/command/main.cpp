// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CommandLine.h"
#include "app/Output.h"
#include "app/WriteSignals.h"
#include "words/Words.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    using namespace ardeno;
    takeWriteSignals();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("ardeno");
    QCoreApplication::setApplicationVersion(ARDENO_VERSION);
    const Words words(Words::Language::English); // As programs that read the output expect.
    const ExitStatus status = runCommandLine(QCoreApplication::arguments().mid(1));
    const bool isComplete = isOutputComplete();
    return static_cast<int>(status == ExitStatus::Done && !isComplete ? ExitStatus::Failed : status);
}
