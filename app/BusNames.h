// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the application is called on the session bus; see org.ardeno.Ardeno.xml.
namespace ardeno::bus {

inline constexpr const char *service = "org.ardeno.Ardeno";
inline constexpr const char *path = "/org/ardeno/Ardeno";
inline constexpr const char *commandLine = "org.ardeno.Ardeno.CommandLine";
inline constexpr const char *application = "org.freedesktop.Application";

// The error of what this application cannot do where it runs.
inline constexpr const char *refusal = "org.ardeno.Ardeno.Error.NotAvailable";

} // namespace ardeno::bus
