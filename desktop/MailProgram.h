// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>

namespace ardeno {

// The program that the user writes e-mail with.
class MailProgram {
public:
    virtual ~MailProgram() = default;

    // Hands over a "mailto:" address. False when there is no such program or it could not be started; a browser that
    // takes such addresses is none.
    virtual bool openDraft(const QUrl &address) = 0;
};

} // namespace ardeno
