// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace ardeno::FontFamilies {

// The interface's own font where it is installed, else the desktop's, and after it one for each kind of writing that it
// does not have: which font shows a Hebrew name or an emoji is not left to the order of what is installed.
QStringList chosen(const QString &desktopFamily);

} // namespace ardeno::FontFamilies
