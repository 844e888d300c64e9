// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFunctionPointer>
#include <QString>

namespace ardeno {

// Parts of the program that need large libraries are opened when they are used for the first time.
namespace Module {

// A function that the module exports. The module stays open. Throws Failure with the reason, for instance that a
// library of the system is missing.
QFunctionPointer function(const QString &module, const char *name);

} // namespace Module

} // namespace ardeno
