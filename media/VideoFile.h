// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace ardeno {

// Videos as VideoWriter leaves them when it is cut short.
namespace VideoFile {

// Cuts off what was only half written at the end. False when nothing can be played: no file, something
// else in its place, or no whole fragment. Throws Failure when it cannot be read; nothing is cut off then.
bool repair(const QString &path);

} // namespace VideoFile

} // namespace ardeno
