// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11RedirectionKeeper.h"

#include "support/Failure.h"

#include <utility>

namespace ardeno {

void X11RedirectionKeeper::keep()
{
    std::shared_ptr<X11RedirectionHold> hold;
    try {
        hold = acquire();
    } catch (const Failure &) {
        hold = nullptr; // Whoever needs it later fails with the same reason.
    }
    const std::scoped_lock lock(m_mutex);
    std::swap(m_kept, hold);
}

void X11RedirectionKeeper::dismiss()
{
    std::shared_ptr<X11RedirectionHold> hold;
    const std::scoped_lock lock(m_mutex);
    std::swap(m_kept, hold);
}

std::shared_ptr<X11RedirectionHold> X11RedirectionKeeper::present()
{
    const std::scoped_lock lock(m_mutex);
    std::shared_ptr<X11RedirectionHold> hold = m_present.lock();
    return hold && hold->isAlive() ? hold : nullptr;
}

std::shared_ptr<X11RedirectionHold> X11RedirectionKeeper::acquire()
{
    if (auto hold = present())
        return hold;
    auto hold = std::make_shared<X11RedirectionHold>(m_displayName);
    const std::scoped_lock lock(m_mutex);
    m_present = hold;
    return hold;
}

} // namespace ardeno
