// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Command.h"

#include <QStringList>

namespace ardeno {

// Carries out a command line; the arguments without the program's name. In a process of its own it needs a
// QCoreApplication and is the only one.
QCoro::Task<ExitStatus> runCommandLine(CommandContext &context, QStringList arguments);

} // namespace ardeno
