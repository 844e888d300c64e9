// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/EndRequest.h"

namespace ardeno {

EndRequest::EndRequest(QDBusConnection connection, std::function<void()> handler)
    : m_handler(std::move(handler)), m_signals(EndSignals::Again::Note, [this] { handle(); })
{
    connection.connect({}, "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local", "Disconnected", this,
                       SLOT(handle()));
}

void EndRequest::handle()
{
    m_handler();
}

} // namespace ardeno
