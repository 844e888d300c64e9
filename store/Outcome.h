// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

namespace ardeno {

// Whom an operation is for: the window shows how it ended and what it made, or whoever called it says so and the window
// stays as its user left it, with its selection, messages and drafts. Remarks are shown in any case.
enum class Audience { Window, Caller };

// Something to know that is neither a success nor a failure of the moment; the window shows it until it is dismissed.
struct Remark {
    QString sentence = {};
    QString subject = {};             // A remark takes the place of an older one about the same; empty: about nothing.
    std::optional<QString> file = {}; // What it speaks of, to be shown.
    bool hasUnsavedSession = false;   // Saving can be tried again.

    bool operator==(const Remark &) const = default;
};

// What one operation did and has to say, a sentence of each kind at most.
struct Outcome {
    bool isDone = false;
    std::optional<QUuid> id = {};           // Of the record that it made or found.
    std::optional<QUuid> checkpointID = {}; // Whose page its notice belongs to; absent: no page's.
    std::optional<QString> notice = {};
    std::optional<QString> error = {};
    std::optional<QString> captureIssue = {}; // An error that belongs into the form.
    QList<Remark> remarks = {};
    // What it is about: a later success in the same matter takes back what was said of a failure.
    QString subject = {};

    explicit operator bool() const { return isDone; }

    const QUuid &operator*() const { return *id; }

    // One sentence does not hide another.
    void fail(const QString &sentence) { error = error ? *error + ' ' + sentence : sentence; }

    // What went wrong, wherever it would have been shown.
    QStringList problems() const
    {
        QStringList sentences;
        for (const auto &sentence : {captureIssue, error}) {
            if (sentence)
                sentences += *sentence;
        }
        return sentences;
    }
};

} // namespace ardeno
