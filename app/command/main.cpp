// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Background.h"
#include "app/CommandLine.h"
#include "app/WriteSignals.h"
#include "support/BlockOn.h"
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
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    StandardOutput out;
    CommandContext context{.out = out};
    const bool isBackground = arguments == QStringList{"--background"};
    const ExitStatus status = isBackground ? runBackground(out) : blockOn(runCommandLine(context, arguments));
    const bool isComplete = out.isComplete();
    return static_cast<int>(status == ExitStatus::Done && !isComplete ? ExitStatus::Failed : status);
}
