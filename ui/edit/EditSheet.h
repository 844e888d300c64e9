// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"
#include "ui/controls/Sheet.h"

#include <QCoreApplication>

namespace ardeno {

class CheckpointEditing;
class Library;
class Messages;
class Choice;
class TextArea;
class TextField;

// A checkpoint's title, project and notes in one form; nothing is stored before "Save context".
class EditSheet final : public Sheet {
    Q_DECLARE_TR_FUNCTIONS(ardeno::EditSheet)

public:
    EditSheet(const Library &library, CheckpointEditing &editing, Messages &messages, const Checkpoint &checkpoint);

private:
    Choice *makeProjects(const Checkpoint &checkpoint);
    void save();

    const Library &m_library;
    CheckpointEditing &m_editing;
    Messages &m_messages;
    QUuid m_id;
    Choice *m_project;
    TextField *m_title;
    TextArea *m_objective;
    TextArea *m_nextStep;
};

} // namespace ardeno
