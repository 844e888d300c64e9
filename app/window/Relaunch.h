// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>
#include <QStringList>

#include <optional>

// One process of the application takes the place of another: it is started with the identifier of the process that
// ends, and waits for that end instead of handing over to it.
namespace ardeno::Relaunch {

// Starts this program once more; gives its process identifier when it runs. Throws Failure.
QCoro::Task<qint64> start();

// The process whose place this one takes, from the arguments it was started with.
std::optional<qint64> predecessor(const QStringList &arguments);

} // namespace ardeno::Relaunch
