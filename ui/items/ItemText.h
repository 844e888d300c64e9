// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/VisibleText.h"

// Texts that other programs wrote, as one line that can be drawn in no time.
namespace ardeno::ItemText {

inline QString line(const QString &text)
{
    constexpr qsizetype most = 400; // Characters; no screen shows more of them in one line.
    return VisibleText::oneLine(text.left(2 * most)).simplified().left(most);
}

} // namespace ardeno::ItemText
