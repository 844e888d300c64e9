// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/projects/CaptureParts.h"

#include <QWidget>

class QLabel;
class QLineEdit;

namespace ardeno {

class Button;
class DropDown;
class Switch;
class TextField;

// The few fields that a checkpoint needs.
class QuickSaveContent final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(ardeno::QuickSaveContent)

public:
    explicit QuickSaveContent(const CaptureParts &parts, QWidget *parent = nullptr);

    // For another checkpoint; the first thing to type has the focus.
    void begin();

    // What went wrong in a save from here, other than the capture itself.
    void showError(const std::optional<QString> &error);

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *makeProjectRow();
    QWidget *makeDetails();
    QWidget *makeFooter();
    void showState();
    void showDetails(bool isOpen);
    void save();

    CaptureParts m_parts;
    std::optional<QString> m_error = {};
    Subscriptions m_subscriptions; // Before the fields, which it is about.
    DropDown *m_project;
    TextField *m_newProject;
    TextField *m_next;
    Button *m_disclosure;
    QWidget *m_details = nullptr;
    QLabel *m_problem;
    QWidget *m_progress;
    Button *m_cancel;
    Button *m_save;
};

} // namespace ardeno
