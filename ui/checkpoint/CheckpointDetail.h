// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/Screens.h"
#include "ui/checkpoint/CheckpointParts.h"

#include <QScrollArea>

class QBoxLayout;
class QLabel;
class QVBoxLayout;

namespace ardeno {

class Button;
class InlineNote;
class ScreenshotCard;

// The way back into one checkpoint: when it was saved, its picture, its notes. It is made anew for each checkpoint.
class CheckpointDetail final : public QScrollArea {
public:
    CheckpointDetail(const CheckpointParts &parts, const Screens &screens, const Checkpoint &checkpoint);

    // Keeps what was typed into the notes.
    void commitNotes();

    // Brings what the last resume could not do into view.
    void showShortfall();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *makePage(const Checkpoint &checkpoint);
    QWidget *makeEyebrow(const Checkpoint &checkpoint);
    QWidget *makeResumeRow();
    QWidget *makeFooter(const Checkpoint &checkpoint);
    InlineNote *makeNote(QString Checkpoint::*field);
    // The picture leaves the notes their place above the fold.
    void fitPicture();
    void showCheckpoint();
    void showNote(InlineNote *note, QString Checkpoint::*field, const Checkpoint &checkpoint);
    void showResume(const Checkpoint &checkpoint);
    void viewRecording(const Checkpoint &checkpoint);
    const Checkpoint *current() const;

    CheckpointParts m_parts;
    const Screens &m_screens;
    Checkpoint m_sample; // The checkpoint when it is one of the sample's, which are not in the library.
    QUuid m_id;
    QLabel *m_title;
    Button *m_resume = nullptr;
    QLabel *m_caption = nullptr;
    Button *m_recording = nullptr;
    QWidget *m_shortfall = nullptr;
    ScreenshotCard *m_screenshot = nullptr;
    InlineNote *m_objective;
    InlineNote *m_nextStep;
    QBoxLayout *m_notes = nullptr;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
