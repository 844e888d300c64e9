// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/InBackground.h"

#include "support/Worker.h"

#include <QCoreApplication>

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace ardeno {

namespace {

// It is never destroyed, since what hangs may end after all that is.
struct BackgroundWork {
    std::mutex mutex = {};
    std::condition_variable changed = {};
    int count = 0;

    static BackgroundWork &instance()
    {
        static auto *const work = new BackgroundWork;
        return *work;
    }

    void add(int number)
    {
        const std::scoped_lock lock(mutex);
        count += number;
        changed.notify_all();
    }
};

// What the work uses goes with the program; what hangs does not keep it.
void awaitBackgroundWork()
{
    constexpr std::chrono::seconds longest(3);
    BackgroundWork &work = BackgroundWork::instance();
    std::unique_lock lock(work.mutex);
    work.changed.wait_for(lock, longest, [&work] { return work.count == 0; });
}

} // namespace

void startBackgroundWork(std::function<void()> work)
{
    static const bool isAwaited = (qAddPostRoutine(awaitBackgroundWork), true);
    Q_UNUSED(isAwaited);
    const auto counted = [work = std::move(work)]() mutable {
        work();
        work = {}; // What it holds goes before it counts as ended.
        BackgroundWork::instance().add(-1);
    };
    BackgroundWork::instance().add(1);
    try {
        startWorker(counted).detach();
    } catch (...) {
        BackgroundWork::instance().add(-1);
        throw;
    }
}

} // namespace ardeno
