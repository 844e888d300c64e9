// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace ardeno::Portal {

inline constexpr auto service = "org.freedesktop.portal.Desktop";
inline constexpr auto path = "/org/freedesktop/portal/desktop";

} // namespace ardeno::Portal
