// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/Newsletter.h"

#include "store/PreferenceKeys.h"

namespace ardeno {

void Newsletter::consider()
{
    if (!m_preferences.value(keys::newsletterPromptDismissed).value_or(false))
        showNewsletterPrompt.set(true);
}

void Newsletter::dismissNewsletterPrompt()
{
    m_preferences.setValue(keys::newsletterPromptDismissed, true);
    showNewsletterPrompt.set(false);
}

} // namespace ardeno
