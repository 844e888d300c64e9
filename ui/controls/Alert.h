// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/Sheet.h"

namespace ardeno {

// A message or a question.
struct AlertText {
    QString title = {};
    QString message = {};
    QString detail = {};  // Below the message: what exactly it is about.
    QString confirm = {}; // Of the button that does it.
    QString cancel = {};  // Empty: there is nothing to cancel.
    Button::Kind kind = Button::Kind::Prominent;
};

// Shows an alert; answered is called once, after it has gone: true when it was confirmed. What is destructive needs its
// button; Return then presses the other one.
Sheet *presentAlert(SheetHost &host, const AlertText &text, std::function<void(bool)> answered);

} // namespace ardeno
