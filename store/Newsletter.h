// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Observable.h"
#include "support/Preferences.h"

namespace ardeno {

// The question about the newsletter, after something was saved.
class Newsletter final {
public:
    PublishedBy<bool, Newsletter> showNewsletterPrompt;

    explicit Newsletter(Preferences &preferences) : m_preferences(preferences) {}

    // Asks unless it was answered before.
    void consider();
    // Never asks again.
    void dismissNewsletterPrompt();

private:
    Preferences &m_preferences;
};

} // namespace ardeno
