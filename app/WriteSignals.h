// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <csignal>

namespace ardeno {

// A closed pipe and a file that may not grow are errors of writing, not the end of a save. The signals are handled and
// not ignored: the programs that are started do not inherit that.
inline void takeWriteSignals()
{
    for (const int signal : {SIGPIPE, SIGXFSZ})
        std::signal(signal, [](int) {});
}

} // namespace ardeno
