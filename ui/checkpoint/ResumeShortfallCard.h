// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Library.h"
#include "store/OpenSheets.h"
#include "store/ResumeFlow.h"
#include "ui/controls/Surfaces.h"

#include <QCoreApplication>

class QVBoxLayout;

namespace ardeno {

// What the last resume of a checkpoint could not open or place. Hidden where there is no such thing.
class ResumeShortfallCard final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ResumeShortfallCard)

public:
    ResumeShortfallCard(ResumeFlow &resumes, const Library &library, OpenSheets &sheets, const QUuid &checkpointID);

    // One line for each thing; empty when all is back.
    static QStringList missing(const ResumeFlow &resumes, const Library &library, const QUuid &checkpointID);

private:
    QWidget *makeHead();
    void showShortfall();

    ResumeFlow &m_resumes;
    const Library &m_library;
    OpenSheets &m_sheets;
    QUuid m_id;
    QVBoxLayout *m_lines;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
