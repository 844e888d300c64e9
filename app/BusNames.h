// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the application is called on the session bus; see org.ardeno.Ardeno.xml.
namespace ardeno::bus {

inline constexpr const char *service = "org.ardeno.Ardeno";
inline constexpr const char *path = "/org/ardeno/Ardeno";
inline constexpr const char *commandLine = "org.ardeno.Ardeno.CommandLine";
inline constexpr const char *application = "org.freedesktop.Application";

// What whoever gave a command is asked, at the same path: "Begin" answers whether the command is still wanted. Once
// that was said, the application changes things.
inline constexpr const char *caller = "org.ardeno.Ardeno.Caller";

// The error of what this application cannot do where it runs.
inline constexpr const char *refusal = "org.ardeno.Ardeno.Error.NotAvailable";
// The error of a command that was not begun, because the application ends.
inline constexpr const char *ending = "org.ardeno.Ardeno.Error.Ending";

} // namespace ardeno::bus
