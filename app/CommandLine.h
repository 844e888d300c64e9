// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Command.h"

#include <QStringList>

namespace ardeno {

// Carries out a command line; the arguments without the program's name. Needs a QCoreApplication.
ExitStatus runCommandLine(const QStringList &arguments);

} // namespace ardeno
