// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <thread>

namespace ardeno {

// A thread that does the work. Throws Failure when the system has none left.
std::thread startWorker(std::function<void()> work);

} // namespace ardeno
