// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

#include <array>

// What applications are told so that a document or folder gets a window of its own, where they would show it as a tab
// of the window that was used last. Those that open a window anyway are not listed, nor those whose desktop file has an
// action “new-window” that takes a path. bench/applications shows that each of these lines is needed and is right.
namespace ardeno::SeparateWindows {

struct Known {
    QStringView application; // Its identifier.
    QStringView word;        // Comes before the path.
};

inline constexpr std::array known = {
    Known{u"featherpad", u"--win"},               // featherpad --help
    Known{u"geany", u"--new-instance"},           // geany(1)
    Known{u"mousepad", u"--opening-mode=window"}, // mousepad(1), --help
    Known{u"org.gnome.gedit", u"--new-window"},   // gedit(1)
    Known{u"org.kde.kate", u"--new"},             // kate --help
    Known{u"org.xfce.mousepad", u"--opening-mode=window"},
    Known{u"pcmanfm", u"--new-win"},  // pcmanfm(1)
    Known{u"pluma", u"--new-window"}, // pluma(1)
};

} // namespace ardeno::SeparateWindows
