// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/ProjectOperations.h"

#include <QWidget>

class QLabel;

namespace ardeno {

// Which project went to the archive or came from there, and the way back.
class ArchivingBanner final : public QWidget {
public:
    ArchivingBanner(ProjectOperations &projects, const Library &library, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showArchiving();

    ProjectOperations &m_projects;
    const Library &m_library;
    QLabel *m_text;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
