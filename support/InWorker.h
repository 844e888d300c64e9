// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Worker.h"

#include <QCoroFuture>
#include <QCoroTask>
#include <QPromise>

#include <exception>
#include <optional>
#include <type_traits>

namespace ardeno {

// Runs work on a thread of its own and resumes on the caller's; what it throws is thrown there as it is. Throws Failure
// when no thread can be started, where a pool would wait for ever. Rooms that include this link QCoro6::Core.
template <typename Work>
QCoro::Task<std::invoke_result_t<Work>> inWorker(Work work)
{
    using Result = std::invoke_result_t<Work>;
    std::exception_ptr thrown;
    std::conditional_t<std::is_void_v<Result>, std::optional<bool>, std::optional<Result>> result;
    QPromise<void> end;
    const QFuture<void> ended = end.future();
    end.start();
    const auto guarded = [&] {
        try {
            if constexpr (std::is_void_v<Result>)
                work();
            else
                result.emplace(work());
        } catch (...) {
            thrown = std::current_exception();
        }
        end.finish();
    };
    std::thread worker = startWorker(guarded);
    co_await ended;
    worker.join();
    if (thrown)
        std::rethrow_exception(thrown);
    if constexpr (!std::is_void_v<Result>)
        co_return std::move(*result);
}

} // namespace ardeno
