// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/ApplicationMenu.h"

#include "ui/theme/Symbols.h"

#include <QMenu>

namespace ardeno {

namespace {

void connectAction(QAction &action, const std::function<void()> &run)
{
    action.setVisible(static_cast<bool>(run));
    action.setShortcutVisibleInContextMenu(true);
    if (run)
        QObject::connect(&action, &QAction::triggered, &action, run);
}

} // namespace

ApplicationMenu::ApplicationMenu(SessionFlow &sessions, const Operations &operations, const SessionRecorder &recorder,
                                 const Actions &actions)
    : m_operations(operations),
      m_recorder(recorder),
      m_quickSave(tr("Quick Save Checkpoint…")),
      m_recording(tr("Recording main display")),
      m_stop(tr("Stop & Save Checkpoint").replace('&', "&&")),
      m_openWindow(tr("Open Ardeno")),
      m_newsletter(tr("Join the newsletter")),
      m_quit(tr("Quit"))
{
    connectAction(m_quickSave, actions.quickSave);
    connectAction(m_stop, [&sessions] { sessions.stop(); });
    connectAction(m_openWindow, actions.openWindow);
    connectAction(m_newsletter, actions.openNewsletter);
    connectAction(m_quit, actions.quit);
    // Every entry has a symbol, as those of the window have that stand above them.
    m_quickSave.setIcon(Symbols::icon("sparkle"));
    m_recording.setIcon(Symbols::icon("record.circle"));
    m_stop.setIcon(Symbols::icon("checkmark.circle"));
    m_openWindow.setIcon(Symbols::icon("app"));
    m_newsletter.setIcon(Symbols::icon("envelope"));
    m_quit.setIcon(Symbols::icon("xmark"));
    m_recording.setEnabled(false);
    m_quickSave.setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_S);
    m_quit.setShortcut(Qt::CTRL | Qt::Key_Q);
    m_subscriptions.watch([this] { showState(); }, operations.busy, recorder.recording);
}

void ApplicationMenu::showState()
{
    const bool isRecording = m_recorder.recording();
    m_quickSave.setVisible(!isRecording);
    m_recording.setVisible(isRecording);
    m_stop.setVisible(isRecording);
    m_quickSave.setEnabled(!m_operations.busy() && !isRecording);
    m_stop.setEnabled(!m_operations.busy());
}

void ApplicationMenu::fillTray(QMenu *menu)
{
    menu->addActions({&m_quickSave, &m_recording, &m_stop});
    menu->addSeparator();
    menu->addActions({&m_openWindow, &m_newsletter});
    menu->addSeparator();
    menu->addAction(&m_quit);
}

QList<QAction *> ApplicationMenu::windowActions()
{
    return {&m_quickSave, &m_newsletter, &m_quit};
}

} // namespace ardeno
