// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/MailProgram.h"

namespace ardeno {

// The one that is registered for "mailto:" addresses; where that is a browser, the first other one.
class LinuxMailProgram final : public MailProgram {
public:
    bool openDraft(const QUrl &address) override;
};

} // namespace ardeno
