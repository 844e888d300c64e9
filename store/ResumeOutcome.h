// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/RestoreSummary.h"
#include "store/Outcome.h"

namespace ardeno {

struct ResumeOutcome final : Outcome {
    RestoreReport report = {};
};

} // namespace ardeno
