// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

class QDBusPendingCallWatcher;
class QWidget;

namespace ardeno {

// Asks for one file that exists, beginning in the folder of the user's pictures: in the desktop's own dialog where its
// portal has one, else in the toolkit's, in the theme's colours. One question at a time for a window.
class FileChooser final : public QObject {
    Q_OBJECT

public:
    struct Question {
        QString title = {};
        QString kind = {};         // What the patterns are called.
        QStringList patterns = {}; // "*.png"
        QString all = {};          // What all files are called.
    };

    using Chosen = std::function<void(const QString &path)>;

    // Does nothing while the window asks already. Not called when nothing was chosen.
    static void ask(QWidget *window, const Question &question, Chosen chosen);

private Q_SLOTS:
    void answered(uint code, const QVariantMap &results);

private:
    FileChooser(QWidget *window, Question question, Chosen chosen);

    void askPortal();
    void portalHasCall(QDBusPendingCallWatcher *call);
    void askHere();
    void takeKeysBack();

    QWidget *m_window;
    Question m_question;
    Chosen m_chosen;
};

} // namespace ardeno
