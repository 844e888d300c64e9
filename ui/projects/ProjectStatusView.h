// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/projects/ProjectParts.h"

#include <QWidget>

class QLabel;

namespace ardeno {

class Button;
class Chip;
class LineLabel;

// Whether the selected project is active, blocked or archived, and what it waits for.
class ProjectStatusView final : public QWidget {
public:
    explicit ProjectStatusView(const ProjectParts &parts, QWidget *parent = nullptr);

private:
    void showProject();
    void edit();

    ProjectParts m_parts;
    Chip *m_state;
    QLabel *m_waitingFor;
    LineLabel *m_reason;
    Button *m_block;
    Button *m_editReason;
    Button *m_activate;
    Button *m_unarchive;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
