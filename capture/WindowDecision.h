// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/WindowTarget.h"

#include <optional>

// What a resume does with a live window that is the saved one. Pure.
namespace ardeno::WindowLayout {

// Why a window is not placed; translated where it is shown.
namespace reason {

extern const char *const noSuchWindow;
extern const char *const elsewhere;
extern const char *const several;
extern const char *const notMovable;
extern const char *const notAnswering;
extern const char *const stopped;

} // namespace reason

struct WindowDecision {
    std::optional<WindowMove> move = {};
    bool isInPlace = false;    // It needs no move.
    const char *why = nullptr; // It cannot be moved now; with a move: what remains to be said of it.
    bool isWaiting = false;    // But may be later.
};

struct WindowCircumstances {
    bool isAwaited = false; // This resume caused it to be opened.
    bool wasThere = false;  // Before anything was opened.
    bool isMovedByUser = false;
    bool isUneasy = false; // Its application is not done with it.
};

WindowDecision decide(const SavedWindow &saved, const MovableWindow &window, const WindowCircumstances &circumstances,
                      const WindowScene &scene);

} // namespace ardeno::WindowLayout
