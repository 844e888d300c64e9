// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <exception>
#include <optional>
#include <type_traits>

namespace ardeno {

// Runs the event loop until the task is done; returns or throws what the task does. QCoro's own waiting hangs on a
// task that throws.
template <typename T>
T finish(QCoro::Task<T> task)
{
    std::exception_ptr thrown;
    if constexpr (std::is_void_v<T>) {
        auto caught = [&]() -> QCoro::Task<void> {
            try {
                co_await task;
            } catch (...) {
                thrown = std::current_exception();
            }
        };
        QCoro::waitFor(caught());
        if (thrown)
            std::rethrow_exception(thrown);
    } else {
        std::optional<T> result;
        auto caught = [&]() -> QCoro::Task<void> {
            try {
                result.emplace(co_await task);
            } catch (...) {
                thrown = std::current_exception();
            }
        };
        QCoro::waitFor(caught());
        if (thrown)
            std::rethrow_exception(thrown);
        return std::move(*result);
    }
}

} // namespace ardeno
