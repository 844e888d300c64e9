// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/WindowServer.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <memory>

namespace ardeno {

// The windows that the X server and its window manager know.
class X11WindowServer final : public WindowServer {
public:
    X11WindowServer(std::shared_ptr<X11Connection> connection, std::shared_ptr<DesktopEntries> entries);

    Capability availability() const override;
    QList<Display> displays() override;
    QList<QString> virtualDesktops() override;
    QList<WindowInfo> allWindows() override;

private:
    std::shared_ptr<X11Connection> m_connection;
    std::shared_ptr<DesktopEntries> m_entries;
};

} // namespace ardeno
