// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Command.h"

namespace ardeno {

// The application where there is no display: holds the library and serves commands over the session bus until it is
// asked to end or the desktop session ends.
ExitStatus runBackground(Output &out);

} // namespace ardeno
