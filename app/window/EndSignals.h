// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/FileDescriptor.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace ardeno {

// SIGTERM, SIGINT and SIGHUP end the application as its user would, so that nothing typed is lost. One for a process.
class EndSignals final {
public:
    // Called from the event loop.
    explicit EndSignals(std::function<void()> end);

private:
    FileDescriptor m_readEnd;
    FileDescriptor m_writeEnd;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace ardeno
