// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/AppUpdateManifest.h"

#include <QCoroTask>

#include <chrono>
#include <functional>

namespace ardeno::UpdateProgram {

using Fetch = std::function<QCoro::Task<std::optional<AppUpdateManifest>>()>;

// Gets the manifest from a program that prints it, or nothing for whatever reason; the program is ended when it takes
// longer. What speaks with the network is thus no part of the application, which runs all day. Empty when there is no
// such program: it was built without the check.
Fetch fetch(const QString &program, std::chrono::milliseconds patience = std::chrono::seconds(12));

} // namespace ardeno::UpdateProgram
