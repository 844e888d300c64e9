// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"
#include "ui/controls/Sheet.h"

#include <QCoreApplication>
#include <QVariant>

namespace ardeno {

class CheckpointEditing;
class DropDown;
class KeptForms;
class Library;
class Messages;
class Navigation;
class TextArea;
class TextField;

struct EditParts {
    const Library &library;
    CheckpointEditing &editing;
    Messages &messages;
    KeptForms &kept;
};

// A checkpoint's title, project and notes in one form; nothing is stored before "Save context".
class EditSheet final : public Sheet {
    Q_DECLARE_TR_FUNCTIONS(ardeno::EditSheet)

public:
    EditSheet(const EditParts &parts, const Checkpoint &checkpoint);

    // The form that was open when the program was ended, with what stood in it.
    static void reopenKept(const EditParts &parts, Navigation &navigation, SheetHost &host);

private:
    DropDown *makeProjects(const Checkpoint &checkpoint);
    QWidget *makeForm();
    void save();
    void keep() const;
    void fillKept();

    EditParts m_parts;
    QUuid m_id;
    QVariant m_projectBefore;
    QWidget *m_keptNote;
    DropDown *m_project;
    TextField *m_title;
    TextArea *m_objective;
    TextArea *m_nextStep;
};

} // namespace ardeno
