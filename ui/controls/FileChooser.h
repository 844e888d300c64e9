// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/FileDialogs.h"

#include <QObject>

class QWidget;

namespace ardeno {

// Asks for one file that exists, beginning in the folder of the user's pictures: in the desktop's own dialog where it
// has one, else in the toolkit's, in the theme's colours. One question at a time for a window.
class FileChooser final : public QObject {
    Q_OBJECT

public:
    using Question = FileDialogs::Question;
    using Chosen = std::function<void(const QString &path)>;

    // Does nothing while the window asks already. Not called when nothing was chosen. Folder and window need not be
    // told.
    static void ask(QWidget *window, FileDialogs &dialogs, Question question, Chosen chosen);

private:
    FileChooser(QWidget *window, Question question, Chosen chosen);

    void answered(FileDialogs::Answer answer, const QString &path);
    void askHere();
    void takeKeysBack();

    QWidget *m_window;
    Question m_question;
    Chosen m_chosen;
    std::unique_ptr<FileDialogs::Asking> m_asking;
};

} // namespace ardeno
