// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/browsers/BrowserProcesses.h"
#include "platform/linux/browsers/BrowserState.h"

#include <QByteArrayView>

#include <optional>

namespace ardeno::FirefoxState {

// The windows that a state file describes, the empty ones left out. Absent when the bytes are no such file or are
// damaged. Any bytes are survived.
std::optional<QList<ListedWindow>> windows(QByteArrayView file);

// Reads the state of the process's profile, or its older copy while the browser is writing. Writes and locks nothing.
// For a worker thread: it may wait for the disk.
BrowserState read(const BrowserProcess &process);

} // namespace ardeno::FirefoxState
