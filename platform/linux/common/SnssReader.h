// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/common/BrowserSession.h"

#include <QByteArrayView>
#include <QList>

#include <optional>

namespace ardeno::SnssReader {

// The windows that a session file of the Chromium family describes, in the order of their identifiers, the empty ones
// left out. Absent when the bytes are no such file, an encrypted one, or do not hold a whole initial state (the browser
// has only begun to write). Any bytes are survived; a damaged end is ignored.
std::optional<QList<SessionWindow>> windows(QByteArrayView file);

} // namespace ardeno::SnssReader
