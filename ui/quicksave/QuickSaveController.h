// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/QuickSaveShortcut.h"
#include "ui/quicksave/QuickSavePanel.h"

#include <functional>
#include <memory>

namespace ardeno {

// Opens the quick-save panel by the hot key, which follows the setting, and whenever the store asks for it.
class QuickSaveController final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::QuickSaveController)

public:
    // What shows the main window, which has an unfinished sheet.
    QuickSaveController(const CaptureParts &parts, QuickSaveShortcut &shortcut, Desktop &desktop,
                        std::function<void()> showWindow);
    ~QuickSaveController();
    QuickSaveController(const QuickSaveController &) = delete;
    QuickSaveController &operator=(const QuickSaveController &) = delete;

    // What the hot key does.
    void trigger();

private:
    void registerShortcut(int choice);
    void followFlag();
    void present();
    void hide();
    bool isSheetOpen() const;

    CaptureParts m_parts;
    QuickSaveShortcut &m_shortcut;
    Desktop &m_desktop;
    std::function<void()> m_showWindow;
    std::unique_ptr<QuickSavePanel> m_panel; // Made when it is wanted first, then kept.
    Subscriptions m_subscriptions;
};

} // namespace ardeno
