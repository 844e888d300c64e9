// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Outcome.h"
#include "support/Observable.h"

#include <QList>
#include <QString>

namespace ardeno {

// What the window tells its user. Main thread only.
class Messages {
public:
    template <typename T>
    using Shown = PublishedBy<T, Messages>;

    // The newest of the problems, which stay until they are dismissed or their matter has succeeded.
    Shown<std::optional<QString>> error;
    // What was done last, until something else is done or fails, it is taken back, another page is shown, or it is
    // dismissed.
    Shown<std::optional<QString>> notice;
    Shown<QList<Remark>> remarks;
    // What is wrong with capturing, for the form.
    Shown<std::optional<QString>> captureIssue;

    // Tells how an operation ended.
    void tell(const Outcome &outcome);
    void report(const QString &problem, const QString &subject = {});
    void confirm(const QString &sentence);
    void remark(const Remark &remark);
    // Takes back what was said about this.
    void resolve(const QString &subject);
    void setCaptureIssue(const std::optional<QString> &issue);

    // What the notice is about, as its outcome says.
    const QString &noticeSubject() const { return m_noticeSubject; }

    // All problems and remarks, oldest first.
    QStringList sentences() const;

    void dismissError();
    void dismissNotice();
    void dismiss(const Remark &remark);

private:
    struct Problem {
        QString sentence = {};
        QString subject = {};
    };

    void showNewest();

    QList<Problem> m_problems; // Oldest first.
    QString m_noticeSubject;
};

} // namespace ardeno
