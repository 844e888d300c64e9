// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/browsers/BrowserProcesses.h"
#include "platform/linux/browsers/BrowserSession.h"

#include <QByteArrayView>

#include <optional>

namespace ardeno::FirefoxSession {

// The windows that a session file describes, the empty ones left out. Absent when the bytes are no such file or are
// damaged. Any bytes are survived.
std::optional<QList<SessionWindow>> windows(QByteArrayView file);

// Reads the session of the process's profile, or its older copy while the browser is writing. Writes and locks nothing.
// For a worker thread: it may wait for the disk.
BrowserSession read(const BrowserProcess &process);

} // namespace ardeno::FirefoxSession
