// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/EndSignals.h"

#include <QDBusConnection>

namespace ardeno {

// Tells when the application is to end: a signal from outside, or the end of the session's bus. One object at a time.
class EndRequest final : public QObject {
    Q_OBJECT

public:
    EndRequest(QDBusConnection connection, std::function<void()> handler);

private Q_SLOTS: // The bus library calls slots alone.
    void handle();

private:
    std::function<void()> m_handler;
    EndSignals m_signals;
};

} // namespace ardeno
