// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>
#include <functional>
#include <optional>

namespace ardeno {

// How the user wants every application to look.
struct AppearanceWishes {
    enum class Brightness { Any, Dark, Light };
    using Shares = std::array<double, 3>; // Red, green and blue, each from 0 to 1.

    Brightness brightness = Brightness::Any;
    bool hasHighContrast = false;
    bool hasReducedMotion = false;
    QString iconTheme = {};            // Of the applications' icons; empty: as the platform has it.
    std::optional<Shares> accent = {}; // Absent: none was chosen.
    double textScale = 1;              // As it is told: not checked.

    bool operator==(const AppearanceWishes &) const = default;
};

// Where the desktop keeps these wishes. On the main thread.
class DesktopAppearance {
public:
    using Changed = std::function<void(const AppearanceWishes &)>;

    virtual ~DesktopAppearance() = default;

    // As far as they are known; who has yet to start is not waited for.
    virtual AppearanceWishes wishes() const = 0;
    virtual void setChangeHandler(Changed changed) = 0;
};

} // namespace ardeno
