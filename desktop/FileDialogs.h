// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace ardeno {

// The desktop's own dialog in which the user chooses a file.
class FileDialogs {
public:
    struct Question {
        QString title = {};
        QString kind = {};         // What the patterns are called.
        QStringList patterns = {}; // "*.png"
        QString all = {};          // What all files are called.
        QString folder = {};       // Where it begins.
        quint64 window = 0;        // Over which it stands, by the system's number; 0 where it has none.
    };

    enum class Answer {
        Chosen,
        Closed,   // Without a choice, or the dialog has vanished.
        NoDialog, // The desktop has none.
    };

    // Called once, on the main thread; the path is that of a chosen file. A desktop without dialogs may say so before
    // ask() returns.
    using Answered = std::function<void(Answer, const QString &path)>;

    // Whoever lets go of it hears nothing more. It outlives the desktop.
    class Asking {
    public:
        virtual ~Asking() = default;
    };

    virtual ~FileDialogs() = default;

    virtual std::unique_ptr<Asking> ask(const Question &question, Answered answered) = 0;
};

} // namespace ardeno
