// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/pictures/X11RedirectionHold.h"

#include <QByteArray>

#include <memory>
#include <mutex>

namespace ardeno {

// The one redirection of this process, shared by all pictures and recordings: a second one would not know what windows
// had inherited before it began. Used from any thread.
class X11RedirectionKeeper final {
public:
    explicit X11RedirectionKeeper(QByteArray displayName) : m_displayName(std::move(displayName)) {}

    const QByteArray &displayName() const { return m_displayName; }

    // Begins one, which lasts until it is no longer needed by anybody. Where that is impossible nothing happens.
    void keep();
    void dismiss();

    // The one there is, if it is of use; else null.
    std::shared_ptr<X11RedirectionHold> present();
    // The same, begun when there is none. Throws what X11Redirection does.
    std::shared_ptr<X11RedirectionHold> acquire();

private:
    const QByteArray m_displayName;
    std::mutex m_mutex = {}; // Of the pointers alone.
    std::shared_ptr<X11RedirectionHold> m_kept = {};
    std::weak_ptr<X11RedirectionHold> m_present = {};
};

} // namespace ardeno
