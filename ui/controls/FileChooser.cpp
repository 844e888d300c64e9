// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/FileChooser.h"

#include "ui/theme/AppTheme.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QStandardPaths>
#include <QTimer>

#include <utility>

namespace ardeno {

namespace {

QString picturesFolder()
{
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFile::exists(pictures) ? pictures : QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
}

// Of the theme, for a dialog whose parts the toolkit draws, which uses every role as it is meant.
QPalette stockPalette()
{
    QPalette palette = AppTheme::instance().palette();
    palette.setColor(QPalette::Light, themeColor(Role::Card));
    palette.setColor(QPalette::Midlight, themeColor(Role::Line));
    palette.setColor(QPalette::Mid, themeColor(Role::Line));
    palette.setColor(QPalette::Dark, themeColor(Role::Outline));
    palette.setColor(QPalette::Shadow, themeColor(Role::Outline));
    palette.setColor(QPalette::BrightText, themeColor(Role::Text));
    palette.setColor(QPalette::LinkVisited, themeColor(Role::AccentText));
    return palette;
}

} // namespace

void FileChooser::ask(QWidget *window, FileDialogs &dialogs, Question question, Chosen chosen)
{
    if (window->findChild<FileChooser *>({}, Qt::FindDirectChildrenOnly))
        return;
    question.folder = picturesFolder();
    question.window = QGuiApplication::platformName() == "xcb" ? window->winId() : 0;
    auto *const chooser = new FileChooser(window, question, std::move(chosen));
    chooser->m_asking = dialogs.ask(
        question, [chooser](FileDialogs::Answer answer, const QString &path) { chooser->answered(answer, path); });
}

FileChooser::FileChooser(QWidget *window, Question question, Chosen chosen)
    : QObject(window), m_window(window), m_question(std::move(question)), m_chosen(std::move(chosen))
{
}

void FileChooser::answered(FileDialogs::Answer answer, const QString &path)
{
    if (answer == FileDialogs::Answer::NoDialog) {
        askHere();
        return;
    }
    deleteLater();
    if (answer == FileDialogs::Answer::Chosen)
        m_chosen(path);
}

void FileChooser::askHere()
{
    auto *dialog = new QFileDialog(m_window, m_question.title, m_question.folder);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setPalette(stockPalette());
    dialog->setNameFilters({m_question.kind + " (" + m_question.patterns.join(' ') + ')', m_question.all + " (*)"});
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) { m_chosen(path); });
    connect(dialog, &QObject::destroyed, this,
            [this] { QTimer::singleShot(std::chrono::milliseconds(0), this, &FileChooser::takeKeysBack); });
    dialog->open();
}

// The system may give the keys back to the window before the dialog has gone; the toolkit then forgets that.
void FileChooser::takeKeysBack()
{
    if (!QApplication::activeWindow() && QGuiApplication::focusWindow() == m_window->windowHandle())
        QApplication::setActiveWindow(m_window);
    deleteLater();
}

} // namespace ardeno
