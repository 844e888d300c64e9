// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroFuture>
#include <QCoroTask>
#include <QtConcurrent>

#include <exception>
#include <optional>
#include <type_traits>

namespace ardeno {

// Runs work on a worker thread and resumes on the caller's; what it throws is thrown there as it is (a QFuture would
// hand on a type of its own). Rooms that include this link QCoro6::Core and Qt6::Concurrent.
template <typename Work>
QCoro::Task<std::invoke_result_t<Work>> inWorker(Work work)
{
    using Result = std::invoke_result_t<Work>;
    std::exception_ptr thrown;
    std::conditional_t<std::is_void_v<Result>, std::optional<bool>, std::optional<Result>> result;
    const auto guarded = [&] {
        try {
            if constexpr (std::is_void_v<Result>)
                work();
            else
                result.emplace(work());
        } catch (...) {
            thrown = std::current_exception();
        }
    };
    co_await QtConcurrent::run(guarded);
    if (thrown)
        std::rethrow_exception(thrown);
    if constexpr (!std::is_void_v<Result>)
        co_return std::move(*result);
}

} // namespace ardeno
