// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFutureWatcher>
#include <QObject>
#include <QPromise>

#include <functional>
#include <memory>
#include <utility>

namespace ardeno {

// Work on a thread of its own, which the end of the application waits for. Throws Failure when no thread can be had.
void startBackgroundWork(std::function<void()> work);

// Gives what the work results in to the function, on the main thread and as long as the context lives. The result is an
// empty one where the work cannot be done.
template <typename Result>
void inBackground(QObject *context, std::function<Result()> work, std::function<void(const Result &)> done)
{
    auto *const watcher = new QFutureWatcher<Result>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, context, [watcher, done = std::move(done)] {
        watcher->deleteLater();
        done(watcher->result());
    });
    const auto promise = std::make_shared<QPromise<Result>>();
    const auto answer = [promise](const Result &result) {
        promise->addResult(result);
        promise->finish();
    };
    promise->start();
    watcher->setFuture(promise->future());
    const auto attempt = [answer, work = std::move(work)] {
        Result result = {};
        try {
            result = work();
        } catch (...) {
            // Nothing is what there is then.
        }
        answer(result);
    };
    try {
        startBackgroundWork(attempt);
    } catch (...) {
        answer({});
    }
}

} // namespace ardeno
