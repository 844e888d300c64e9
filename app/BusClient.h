// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Command.h"

#include <QStringList>

#include <optional>

namespace ardeno {

// Commands for the application that runs.
namespace BusClient {

// Has the running application carry out the command and prints what it wrote. Absent when none runs, or when there is
// no bus to reach it: then the library's lock tells who is in the way. Throws Failure when it does not answer.
QCoro::Task<std::optional<ExitStatus>> run(Output &out, QStringList arguments);

// Asks the application that runs to show its window. Absent when nobody answers.
std::optional<ExitStatus> showWindow(Output &out);

// Throws Failure where a program that is none of ours has the application's name on the bus: nobody could be reached.
void refuseStranger();

// Starts the application without a window and returns when it serves commands. Throws Failure.
void startApplication();

} // namespace BusClient

} // namespace ardeno
