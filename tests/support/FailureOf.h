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

// The same with its domain and code: "Capture 2: The displays changed."; empty when it does not fail.
template <typename Call>
QString wholeFailureOf(Call call)
{
    try {
        call();
    } catch (const Failure &failure) {
        return QString("%1 %2: %3").arg(failure.domain()).arg(failure.code()).arg(failure.description());
    }
    return {};
}

} // namespace ardeno
