// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/ScreenAccessSetup.h"

#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/controls/Surfaces.h"

namespace ardeno {

namespace {

QString buildText()
{
    const QString version = QCoreApplication::applicationVersion();
    return version.isEmpty() ? QCoreApplication::translate("ardeno::ScreenAccessSetup", "Development") : version;
}

} // namespace

ScreenAccessSetup::ScreenAccessSetup(ScreenAccessFlow &screenAccess, const Operations &operations,
                                     const SessionRecorder &recorder)
    : m_screenAccess(screenAccess),
      m_operations(operations),
      m_recorder(recorder),
      m_allow(new Button(tr("Allow screen access…"))),
      m_check(new Button(tr("Check again"))),
      m_restart(new Button(tr("Restart app")))
{
    auto *column = makeColumn(14, this);
    column->addLayout(makeMarked("exclamationmark.circle", Role::AmberText,
                                 makeParagraph(tr("Screen access is required before saving a checkpoint. Your draft "
                                                  "stays here while you enable it."),
                                               TextStyle::Body, Role::AmberText)));
    column->addWidget(makeSteps());
    column->addWidget(makeScreenAccessExplanation());
    connect(m_allow, &QAbstractButton::clicked, this, [this] { m_screenAccess.requestScreenAccess(); });
    connect(m_check, &QAbstractButton::clicked, this, [this] { m_screenAccess.verifyAccessNow(); });
    connect(m_restart, &QAbstractButton::clicked, this, [this] { m_screenAccess.restartForPermission(); });
    m_subscriptions.watch([this] { showProgress(); }, screenAccess.requestingAccess, screenAccess.permissionRequestSent,
                          screenAccess.restartingApp, operations.busy, recorder.recording);
}

QWidget *ScreenAccessSetup::makeSteps()
{
    auto *card = new Card;
    auto *column = makeColumn(10, card);
    column->setContentsMargins(14, 13, 14, 13);
    column->addWidget(makeLabel(tr("Screen access setup"), TextStyle::Strong));
    column->addWidget(makeButtons());
    column->addWidget(makeRestart());
    QLabel *const process = makeLabel(tr("Process: %1").arg(QCoreApplication::applicationPid()) + u" · "_qs +
                                          tr("Build: %1").arg(buildText()),
                                      TextStyle::Small, Role::Dim);
    process->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(process);
    return card;
}

QWidget *ScreenAccessSetup::makeButtons()
{
    auto *buttons = new QWidget;
    auto *column = makeColumn(8, buttons);
    auto *row = makeRow(8);
    auto *settings = new Button(tr("Open Settings"));
    connect(settings, &QAbstractButton::clicked, this, [this] { m_screenAccess.openScreenSettings(); });
    row->addWidget(m_allow);
    row->addWidget(settings);
    row->addStretch();
    column->addLayout(row);
    column->addWidget(m_check, 0, Qt::AlignLeft);
    return buttons;
}

QWidget *ScreenAccessSetup::makeRestart()
{
    auto *restart = new QWidget;
    auto *row = makeRow(8, restart);
    row->addWidget(makeParagraph(tr("macOS asked you to reopen?"), TextStyle::Body, Role::Dim), 1);
    row->addWidget(m_restart);
    return restart;
}

void ScreenAccessSetup::showProgress()
{
    const bool isUnderWay = m_screenAccess.requestingAccess() || m_screenAccess.restartingApp();
    m_allow->setEnabled(!isUnderWay && !m_screenAccess.permissionRequestSent());
    m_check->setEnabled(!isUnderWay);
    m_restart->setEnabled(!isUnderWay && !m_operations.busy() && !m_recorder.recording());
}

QWidget *makeScreenAccessExplanation()
{
    const auto tr = [](const char *text) {
        return QCoreApplication::translate("ardeno::ScreenAccessExplanation", text);
    };
    auto *block = new QWidget;
    auto *column = makeColumn(7, block);
    column->addWidget(makeLabel(tr("Why we need screen access"), TextStyle::Strong));
    column->addWidget(makeParagraph(tr("To help you pick up where you left off, Save checkpoint takes a screenshot of "
                                       "all connected displays and saves your workspace context locally."),
                                    TextStyle::Small, Role::Dim));
    column->addWidget(makeParagraph(tr("Apple calls this “bypassing the private window picker” because this app "
                                       "captures the display directly, without asking you to select a window each "
                                       "time."),
                                    TextStyle::Small, Role::Dim));
    auto *sound = new QWidget;
    auto *texts = makeColumn(2, sound);
    texts->addWidget(makeLabel(tr("Microphone and system audio are off"), TextStyle::SmallStrong));
    texts->addWidget(makeParagraph(tr("Apple’s warning mentions audio, but this app doesn’t record it. Captures stay "
                                      "on this Mac. Visible private windows and notifications may be included."),
                                   TextStyle::Small, Role::Dim));
    column->addLayout(makeMarked("mic.slash", Role::SageText, sound));
    return block;
}

} // namespace ardeno
