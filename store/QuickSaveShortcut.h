// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/PreferenceKeys.h"
#include "store/PreferenceMirror.h"

namespace ardeno {

// The key that opens the quick panel: which one is wanted, and why it cannot be had.
class QuickSaveShortcut final {
public:
    PublishedBy<int, QuickSaveShortcut> shortcutChoice;
    PublishedBy<std::optional<QString>, QuickSaveShortcut> shortcutIssue; // Reported by whoever holds the shortcut.

    explicit QuickSaveShortcut(Preferences &preferences)
        : shortcutChoice(preferences.value(keys::quickSaveShortcut).value_or(0)),
          m_mirror(mirror(shortcutChoice, preferences, keys::quickSaveShortcut))
    {
    }

    void setShortcutChoice(int choice) { shortcutChoice.set(choice); }

    void setShortcutIssue(const std::optional<QString> &issue) { shortcutIssue.set(issue); }

private:
    QPropertyNotifier m_mirror;
};

} // namespace ardeno
