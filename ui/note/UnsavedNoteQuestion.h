// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"
#include "ui/controls/Sheet.h"

#include <QCoreApplication>
#include <QPointer>

namespace ardeno {

// Asks whoever leaves a checkpoint with a note that could not be written whether they want to go back to it. The note
// is kept either way.
class UnsavedNoteQuestion final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::UnsavedNoteQuestion)

public:
    UnsavedNoteQuestion(AppStore &store, SheetHost &host);

private:
    void look();
    void ask(const Checkpoint &checkpoint);

    AppStore &m_store;
    SheetHost &m_host;
    QSet<QUuid> m_asked; // About these it was asked since they were left.
    QPointer<Sheet> m_question;
    Observations m_observations;
};

} // namespace ardeno
