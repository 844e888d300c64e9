// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/WindowMover.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <memory>

namespace ardeno {

// Moves windows by asking the window manager, as a pager does.
class X11WindowMover final : public WindowMover {
public:
    X11WindowMover(std::shared_ptr<X11Connection> connection, std::shared_ptr<DesktopEntries> entries);

    Capability availability() const override;
    QList<MovableWindow> windows() override;
    UserInput input() override;
    QCoro::Task<QList<MoveResult>> move(QList<WindowMove> moves) override;

private:
    std::shared_ptr<X11Connection> m_connection;
    std::shared_ptr<DesktopEntries> m_entries;
};

} // namespace ardeno
