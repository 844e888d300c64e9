// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Failure.h"

namespace ardeno {

// What a call says when it fails.
template <typename Call>
QString failureOf(Call call)
{
    try {
        call();
    } catch (const Failure &failure) {
        return failure.description();
    }
    return "no failure";
}

} // namespace ardeno
