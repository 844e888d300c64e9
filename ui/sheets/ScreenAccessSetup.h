// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Operations.h"
#include "store/ScreenAccessFlow.h"
#include "store/SessionRecorder.h"

#include <QWidget>

namespace ardeno {

class Button;

// What the user can do about pictures of the screen that are not allowed yet, with the reason for it below.
class ScreenAccessSetup final : public QWidget {
public:
    ScreenAccessSetup(ScreenAccessFlow &screenAccess, const Operations &operations, const SessionRecorder &recorder);

private:
    QWidget *makeSteps();
    QWidget *makeButtons();
    QWidget *makeRestart();
    void showProgress();

    ScreenAccessFlow &m_screenAccess;
    const Operations &m_operations;
    const SessionRecorder &m_recorder;
    Button *m_allow;
    Button *m_check;
    Button *m_restart;
    Subscriptions m_subscriptions;
};

// Why the screen is looked at, and what is done with it.
QWidget *makeScreenAccessExplanation();

} // namespace ardeno
