// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Workspace.h"
#include "ui/controls/Sheet.h"

#include <QCoreApplication>

namespace ardeno {

class PlainList;
class TextField;

// The installed applications, with a search; one of them can be chosen.
class ApplicationChooser final : public Sheet {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ApplicationChooser)

public:
    using Chosen = std::function<void(const InstalledApplication &)>;

    ApplicationChooser(QList<InstalledApplication> applications, Chosen chosen);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    class Model;

    PlainList *makeList();
    void search(const QString &text);
    void choose();

    QList<InstalledApplication> m_applications;
    Chosen m_chosen;
    Model *m_model;
    TextField *m_search;
    PlainList *m_list;
    QWidget *m_none;
    Button *m_confirm;
};

} // namespace ardeno
