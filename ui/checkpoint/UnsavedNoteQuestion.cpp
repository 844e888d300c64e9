// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/checkpoint/UnsavedNoteQuestion.h"

#include "ui/controls/Alert.h"

namespace ardeno {

UnsavedNoteQuestion::UnsavedNoteQuestion(const Library &library, Navigation &navigation,
                                         const CheckpointEditing &editing, SheetHost &host)
    : m_library(library), m_navigation(navigation), m_editing(editing), m_host(host)
{
    m_subscriptions.watch([this] { look(); }, editing.unsavedNotes, navigation.selection);
}

void UnsavedNoteQuestion::look()
{
    QSet<QUuid> left;
    for (const UnsavedNote &note : m_editing.unsavedNotes()) {
        if (note.checkpointID != m_navigation.selection())
            left.insert(note.checkpointID);
    }
    m_asked &= left;
    for (const QUuid &id : left - m_asked) {
        const Checkpoint *const checkpoint = m_library.checkpoint(id);
        if (checkpoint && !m_question)
            ask(*checkpoint);
    }
}

void UnsavedNoteQuestion::ask(const Checkpoint &checkpoint)
{
    m_asked.insert(checkpoint.id);
    constexpr qsizetype mostOfTitle = 80;
    const AlertText text{
        .title = tr("A note is not saved yet"),
        .message = tr("What you typed into “%1” could not be written. It is kept, and saving it is tried again.")
                       .arg(checkpoint.title.left(mostOfTitle)),
        .confirm = tr("Back to the note"),
        .cancel = tr("Leave it")};
    m_question = presentAlert(m_host, text, [this, id = checkpoint.id](bool isConfirmed) {
        const Checkpoint *const left = m_library.checkpoint(id);
        if (!isConfirmed || !left)
            return;
        m_navigation.selectProject(left->projectID.value_or(QUuid()));
        m_navigation.selectCheckpoint(id);
    });
}

} // namespace ardeno
