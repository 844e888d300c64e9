// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/BugReportComposer.h"
#include "ui/controls/Sheet.h"

#include <QCoreApplication>

namespace ardeno {

class Applications;
class KeptForms;
class TextArea;
class TextField;

// The form of a bug report.
class BugReportView final : public Sheet {
    Q_DECLARE_TR_FUNCTIONS(ardeno::BugReportView)

public:
    BugReportView(Applications &applications, KeptForms &kept);

    // The form that was open when the program was ended, with what stood in it.
    static void reopenKept(Applications &applications, KeptForms &kept, SheetHost &host);

private:
    TextArea *addArea(QVBoxLayout *column, const QString &label, int lines);
    QWidget *makePrivacyNote();
    BugReportDraft draft() const;
    void fillKept();
    void showDraft();
    void copy();
    void openMail();

    Applications &m_applications;
    KeptForms &m_kept;
    TextField *m_title;
    TextArea *m_details;
    TextArea *m_steps;
    Button *m_copy;
    Button *m_open;
};

} // namespace ardeno
