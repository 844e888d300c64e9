// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Failure.h"

#include <QString>

namespace ardeno {

// Whether this desktop session offers something, and if not, why: the reason is a sentence that can be shown.
struct Capability {
    enum class State { Available, NeedsConsent, Unavailable };

    State state = State::Available;
    QString reason = {};

    bool isAvailable() const { return state == State::Available; }

    static Capability available() { return {}; }

    static Capability unavailable(const QString &reason) { return {State::Unavailable, reason}; }

    bool operator==(const Capability &) const = default;
};

// What an operation throws that this desktop session cannot do; commands turn it into exit status 3.
inline constexpr auto notAvailableDomain = "NotAvailable";

inline Failure notAvailable(const QString &reason)
{
    return {notAvailableDomain, 1, reason};
}

inline void require(const Capability &capability)
{
    if (!capability.isAvailable())
        throw notAvailable(capability.reason);
}

} // namespace ardeno
