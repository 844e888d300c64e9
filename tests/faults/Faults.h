// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace ardeno::faults {

// What happens to one call of the system that has to do with files below the folder.
struct Plan {
    enum class Kind { Error, LastingError, Kill };

    QByteArray folder = {};
    int call = 0; // Counted from one.
    Kind kind = Kind::Error;
    int error = 0;
};

// For this process from now on.
void begin(const Plan &plan);
// How many such calls there were since.
int calls();
// Whether threads can be started from now on.
void setThreads(bool available);

} // namespace ardeno::faults
