// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>

// How a window can stand beside its frame, in the words of its record. Other words are kept and mean nothing here.
namespace ardeno::WindowStates {

inline constexpr QLatin1String minimised("minimised");
inline constexpr QLatin1String fullScreen("fullScreen");
inline constexpr QLatin1String maximisedAcross("maximisedAcross");
inline constexpr QLatin1String maximisedDown("maximisedDown");
inline constexpr QLatin1String above("above");
inline constexpr QLatin1String onAllDesktops("onAllDesktops");

} // namespace ardeno::WindowStates
