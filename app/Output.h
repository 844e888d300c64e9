// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Json.h"

#include <QString>

namespace ardeno {

// Standard output carries results only, standard error carries sentences.
void print(const QString &text);
void printError(const QString &sentence);
// Text of the user's or of other programs, made safe for a terminal: no control characters, one line.
QString oneLine(const QString &text);

template <JsonRecord R>
void printJson(const R &record)
{
    print(QString::fromUtf8(json::encode(record)) + '\n');
}

} // namespace ardeno
