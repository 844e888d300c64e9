// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/Operations.h"

#include "store/ResumeOutcome.h"
#include "support/Failure.h"

#include <QCoroFuture>
#include <QPromise>
#include <QScopeGuard>

#include <utility>

namespace ardeno {

Operations::Operations(Messages &messages, const Library &library, const Navigation &navigation)
    : m_messages(messages), m_library(library), m_navigation(navigation)
{
}

// What belongs to another page than the one that is shown by now would stand there under the wrong name.
bool Operations::isShown(const Outcome &outcome) const
{
    return !outcome.checkpointID || !m_library.checkpoint(*outcome.checkpointID) ||
           m_navigation.selection() == outcome.checkpointID;
}

template <typename Result>
Result Operations::concluded(Result outcome, Audience audience)
{
    const PublishTogether group;
    if (audience == Audience::Window) {
        Outcome told = outcome;
        if (!isShown(outcome))
            told.notice.reset();
        m_messages.tell(told);
        return outcome;
    }
    for (const Remark &each : outcome.remarks) // They are about the library, which is the window's as well.
        m_messages.remark(each);
    return outcome;
}

template <typename Result>
QCoro::Task<Result> Operations::carryOut(QCoro::Task<Result> work, Audience audience)
{
    ++m_running;
    working.set(true);
    const auto ended = qScopeGuard([this] { working.set(--m_running > 0); });
    Result outcome;
    try {
        outcome = co_await work;
    } catch (...) {
        outcome.fail(tr("This could not be finished: ") + Failure::current().description());
    }
    co_return concluded(std::move(outcome), audience);
}

template Outcome Operations::concluded(Outcome outcome, Audience audience);
template ResumeOutcome Operations::concluded(ResumeOutcome outcome, Audience audience);
template QCoro::Task<Outcome> Operations::carryOut(QCoro::Task<Outcome> work, Audience audience);
template QCoro::Task<ResumeOutcome> Operations::carryOut(QCoro::Task<ResumeOutcome> work, Audience audience);

void Operations::setBusy(bool isBusy)
{
    busy.set(isBusy);
}

QCoro::Task<void> Operations::whenIdle() const
{
    while (busy()) {
        QPromise<void> promise;
        promise.start();
        const QFuture<void> changed = promise.future();
        const QPropertyNotifier notifier = busy.addNotifier([&promise] { promise.finish(); });
        co_await changed;
    }
}

} // namespace ardeno
