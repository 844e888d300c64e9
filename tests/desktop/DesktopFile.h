// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Files.h"

namespace ardeno::desktop_test {

// Makes an application known: a desktop file of this name, with these lines, in a folder of such files.
inline void writeDesktopFile(const QString &folder, const QString &name, const QByteArray &lines)
{
    writeFile(folder + '/' + name + ".desktop", "[Desktop Entry]\nType=Application\n" + lines + '\n');
}

// Where the desktop looks for the user's own ones.
inline QString ownDesktopFiles()
{
    return QDir::homePath() + "/.local/share/applications";
}

} // namespace ardeno::desktop_test
