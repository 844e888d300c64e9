// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/quicksave/QuickSaveController.h"

#include <utility>

namespace ardeno {

namespace {

// The values of shortcutChoice; any other is the default.
constexpr int shiftSuperChoice = 1;
constexpr int offChoice = 2;

} // namespace

QuickSaveController::QuickSaveController(const CaptureParts &parts, QuickSaveShortcut &shortcut, Desktop &desktop,
                                         std::function<void()> showWindow)
    : m_parts(parts), m_shortcut(shortcut), m_desktop(desktop), m_showWindow(std::move(showWindow))
{
    if (m_desktop.hotKeys->availability().isAvailable())
        m_subscriptions.watch([this] { registerShortcut(m_shortcut.shortcutChoice()); }, shortcut.shortcutChoice);
    else
        shortcut.setShortcutIssue(
            tr("The global shortcut could not start. Quick save is still available in the menu bar."));
    m_subscriptions.watch([this] { followFlag(); }, parts.sheets.showQuickCapture);
}

QuickSaveController::~QuickSaveController()
{
    m_desktop.hotKeys->release();
}

void QuickSaveController::registerShortcut(int choice)
{
    m_desktop.hotKeys->release();
    m_shortcut.setShortcutIssue(std::nullopt);
    if (choice == offChoice)
        return;
    const auto refused = [this](const Failure &) {
        m_shortcut.setShortcutIssue(tr("That shortcut is unavailable. Choose another shortcut or use the menu bar."));
    };
    using Combination = HotKeys::Combination;
    const Combination keys = choice == shiftSuperChoice ? Combination::ShiftSuperS : Combination::ControlAltSuperS;
    try {
        m_desktop.hotKeys->listen(keys, {.pressed = [this] { trigger(); }, .lost = refused});
    } catch (const Failure &failure) {
        refused(failure);
    }
}

void QuickSaveController::trigger()
{
    if (m_parts.sheets.showQuickCapture() && m_panel)
        m_desktop.ownWindows->floatAbove(m_panel->winId());
    else if (isSheetOpen())
        m_showWindow();
    else
        m_parts.setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::QuickPanel);
}

// The panel does not open on top of something unfinished.
bool QuickSaveController::isSheetOpen() const
{
    return m_parts.sheets.showCapture() || m_parts.sheets.showRestore() || m_parts.sheets.showSettings() ||
           m_parts.sheets.showNewProject() || m_parts.sheets.editingBlocker();
}

void QuickSaveController::followFlag()
{
    if (m_parts.sheets.showQuickCapture())
        present();
    else
        hide();
}

void QuickSaveController::present()
{
    if (!m_panel)
        m_panel = std::make_unique<QuickSavePanel>(m_parts);
    m_desktop.ownWindows->rememberFocus();
    // The window manager is asked about windows that it knows.
    m_panel->present([this] { m_desktop.ownWindows->floatAbove(m_panel->winId()); });
}

void QuickSaveController::hide()
{
    if (!m_panel || !m_panel->isVisible())
        return;
    m_desktop.ownWindows->returnFocus(m_panel->winId());
    m_panel->hide();
}

} // namespace ardeno
