// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Names and titles come from other programs and web pages, and may hold characters that nobody sees and that change how
// everything around them is read.
namespace ardeno::VisibleText {

// Whether it is a control or an invisible format character: of those that turn the direction of writing, that hide
// text, that break lines. The joiners are none, as scripts and emoji need them.
bool isHidden(char32_t character);

// Line breaks and other controls become spaces, what else is hidden goes.
QString oneLine(const QString &text);

// The same for several lines.
QString lines(const QString &text);

// JSON for a terminal: the same value, with what is hidden written as escapes.
QByteArray escapedJson(const QByteArray &json);

} // namespace ardeno::VisibleText
