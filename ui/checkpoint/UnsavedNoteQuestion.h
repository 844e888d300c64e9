// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/CheckpointEditing.h"
#include "store/Library.h"
#include "store/Navigation.h"
#include "ui/controls/Sheet.h"

#include <QCoreApplication>
#include <QPointer>

namespace ardeno {

// Asks whoever leaves a checkpoint with a note that could not be written whether they want to go back to it. The note
// is kept either way.
class UnsavedNoteQuestion final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::UnsavedNoteQuestion)

public:
    UnsavedNoteQuestion(const Library &library, Navigation &navigation, const CheckpointEditing &editing,
                        SheetHost &host);

private:
    void look();
    void ask(const Checkpoint &checkpoint);

    const Library &m_library;
    Navigation &m_navigation;
    const CheckpointEditing &m_editing;
    SheetHost &m_host;
    QSet<QUuid> m_asked; // About these it was asked since they were left.
    QPointer<Sheet> m_question;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
