// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Failure.h"
#include "support/Worker.h"

#include <QCoroFuture>
#include <QCoroTask>
#include <QPromise>
#include <QTimer>

#include <array>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <exception>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace ardeno {

// Work that may never end (a disk that has gone does not even answer with an error) and so must not hold a thread that
// others need, nor the end of the program.
class SlowWork final {
public:
    // However much of one kind does not end, there are threads for the others.
    enum class Kind { Files, Documents, Folders, Tabs, Launches };

    // Runs the work on a thread of its own and resumes on the caller's with what it answers or throws. Throws Failure
    // once the deadline has passed, and when no thread can be had; the thread is left to itself then, so the work must
    // own all that it uses.
    template <typename Work>
    static QCoro::Task<std::invoke_result_t<Work>> withinDeadline(Work work, std::chrono::milliseconds deadline,
                                                                  Kind kind)
    {
        using Result = std::invoke_result_t<Work>;
        const auto race = std::make_shared<Race<Result>>();
        const QFuture<void> end = race->ended.future();
        race->ended.start();
        start([race, work = std::move(work)] { run(race, work); }, unfinished[std::size_t(kind)]);
        QTimer::singleShot(deadline, [race] { race->end([] {}); });
        co_await end;
        if (race->thrown)
            std::rethrow_exception(race->thrown);
        if (!race->result)
            throw Failure("SlowWork", 1, "It did not answer in time.");
        co_return std::move(*race->result);
    }

private:
    static constexpr int mostUnfinished = 16;
    inline static std::array<std::atomic<int>, 5> unfinished = {};

    template <typename Run>
    static void start(Run run, std::atomic<int> &count)
    {
        if (++count > mostUnfinished) {
            --count;
            throw Failure("SlowWork", 2, "Too much is waiting for disks that do not answer.");
        }
        try {
            const auto counted = [run = std::move(run), &count] {
                run();
                --count;
            };
            startWorker(counted).detach();
        } catch (const Failure &) {
            --count;
            throw;
        }
    }

    // Between the work and the deadline; the first one to end decides.
    template <typename Result>
    struct Race {
        QPromise<void> ended;
        std::atomic_flag isDecided;
        std::optional<Result> result;
        std::exception_ptr thrown;

        template <typename Decide>
        void end(Decide decide)
        {
            if (isDecided.test_and_set())
                return;
            decide();
            ended.finish();
        }
    };

    template <typename Result, typename Work>
    static void run(const std::shared_ptr<Race<Result>> &race, const Work &work)
    {
        try {
            Result result = work();
            race->end([&] { race->result = std::move(result); });
        } catch (...) {
            race->end([&] { race->thrown = std::current_exception(); });
        }
    }
};

} // namespace ardeno
