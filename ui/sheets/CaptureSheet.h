// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/Sheet.h"
#include "ui/projects/CaptureParts.h"

class QLabel;

namespace ardeno {

class DropDown;
class Switch;
class TextField;

// Saves a checkpoint or starts a work session. What is typed belongs to the store, which keeps it when the sheet goes.
class CaptureSheet final : public Sheet {
public:
    explicit CaptureSheet(const CaptureParts &parts);

protected:
    // What is being saved is not left alone.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void bindDrafts();
    static constexpr int formWidth = 444;
    static constexpr int setupWidth = 414;

    QWidget *makeMiddle();
    QWidget *makeForm();
    QWidget *makeHead();
    QWidget *makeRecordingRow();
    QWidget *makeMessages();
    void showKind();
    void showState();
    void showNewName();
    void showMessages();
    QString primaryText() const;
    bool needsSetup() const;
    void carryOut();

    CaptureParts m_parts;
    Subscriptions m_subscriptions; // Before the fields, which it is about.
    QLabel *m_heading;
    QLabel *m_lead;
    DropDown *m_project;
    TextField *m_name;
    TextField *m_title;
    TextField *m_next;
    Switch *m_browser;
    Switch *m_recording;
    QWidget *m_newName = nullptr;
    QWidget *m_form = nullptr;
    QWidget *m_setup = nullptr;
    QLabel *m_hopeless = nullptr;
    QWidget *m_hopelessRow = nullptr;
    QLabel *m_issue = nullptr;
    Button *m_cancel = nullptr;
    Button *m_primary = nullptr;
};

} // namespace ardeno
