// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/HotKeys.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <QSocketNotifier>

#include <memory>

namespace ardeno {

// Takes the keys from the X server, on a connection of its own that is made when keys are first wanted.
class X11HotKeys final : public HotKeys {
public:
    X11HotKeys() = default;
    ~X11HotKeys() override;
    X11HotKeys(const X11HotKeys &) = delete;
    X11HotKeys &operator=(const X11HotKeys &) = delete;

    Capability availability() const override { return Capability::available(); }

    void listen(Combination keys, Listener listener) override;
    void release() override;

private:
    void connect();
    // Throws Failure when another program has one of them.
    void grab();
    void ungrab() const;
    void readEvents();
    void grabAgain();

    std::unique_ptr<X11Connection> m_connection;
    std::unique_ptr<QSocketNotifier> m_notifier;
    Combination m_keys = Combination::ControlAltSuperS;
    std::shared_ptr<const Listener> m_listener; // Null while none is listened to.
};

} // namespace ardeno
