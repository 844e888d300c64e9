// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/Messages.h"

#include <utility>

namespace ardeno {

void Messages::tell(const Outcome &outcome)
{
    const PublishTogether group;
    if (outcome.captureIssue)
        captureIssue.set(outcome.captureIssue);
    for (const Remark &each : outcome.remarks)
        remark(each);
    if (outcome.isDone)
        resolve(outcome.subject);
    if (outcome.error)
        report(*outcome.error, outcome.subject);
    // What says nothing, as a note that is kept while somebody types, takes nothing away.
    const bool saysNothing = !outcome.notice && outcome.problems().isEmpty();
    // Of what has been taken back since, nothing is said any more.
    const bool isUndone = outcome.isDone && !outcome.subject.isEmpty() && outcome.subject == m_noticeSubject;
    if (!saysNothing || isUndone) {
        notice.publish(outcome.notice);
        m_noticeSubject = outcome.subject;
    }
}

void Messages::report(const QString &problem, const QString &subject)
{
    m_problems.removeIf([&](const Problem &other) {
        return other.sentence == problem || (!subject.isEmpty() && other.subject == subject);
    });
    m_problems.append({problem, subject});
    showNewest();
}

void Messages::confirm(const QString &sentence)
{
    notice.publish(sentence); // The second of its kind is to be seen, too.
    m_noticeSubject.clear();
}

void Messages::remark(const Remark &remark)
{
    QList<Remark> all = remarks();
    all.removeIf([&](const Remark &other) {
        return other.sentence == remark.sentence || (!remark.subject.isEmpty() && other.subject == remark.subject);
    });
    all.append(remark);
    remarks.set(std::move(all));
}

void Messages::resolve(const QString &subject)
{
    if (subject.isEmpty())
        return;
    m_problems.removeIf([&](const Problem &problem) { return problem.subject == subject; });
    showNewest();
    QList<Remark> left = remarks();
    left.removeIf([&](const Remark &remark) { return remark.subject == subject; });
    remarks.set(std::move(left));
}

QStringList Messages::sentences() const
{
    QStringList all;
    for (const Problem &problem : m_problems)
        all += problem.sentence;
    for (const Remark &remark : remarks())
        all += remark.sentence;
    return all;
}

void Messages::setCaptureIssue(const std::optional<QString> &issue)
{
    captureIssue.set(issue);
}

void Messages::dismissError()
{
    if (!m_problems.isEmpty())
        m_problems.removeLast();
    showNewest();
}

void Messages::dismissNotice()
{
    notice.set(std::nullopt);
}

void Messages::dismiss(const Remark &remark)
{
    QList<Remark> left = remarks();
    left.removeOne(remark);
    remarks.set(std::move(left));
}

void Messages::showNewest()
{
    error.set(m_problems.isEmpty() ? std::nullopt : std::optional(m_problems.last().sentence));
}

} // namespace ardeno
