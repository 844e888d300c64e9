// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Library.h"
#include "store/Navigation.h"
#include "store/Operations.h"
#include "store/SessionRecorder.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QMenu;

namespace ardeno {

class Button;
class LineLabel;
class Progress;

// The row above the detail: what is shown, whether a session is recorded, and a menu.
class DetailBar final : public QWidget {
public:
    DetailBar(const Library &library, const Navigation &navigation, const Operations &operations,
              const SessionRecorder &recorder, std::function<void()> stop, std::function<void(QMenu *)> fillMenu,
              QWidget *parent = nullptr);

    static constexpr int barHeight = 52;

private:
    QWidget *makeRecording();
    void showState();
    void showElapsed();

    const Navigation &m_navigation;
    const Operations &m_operations;
    const SessionRecorder &m_recorder;
    LineLabel *m_title;
    QLabel *m_elapsed;
    Button *m_stop;
    QWidget *m_recording;
    Progress *m_progress;
    QTimer m_tick;
    Subscriptions m_subscriptions;
};

// "12:08", "1:02:08" of seconds.
QString elapsedText(qint64 seconds);

} // namespace ardeno
