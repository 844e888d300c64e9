// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>
#include <QEventLoop>

#include <exception>
#include <optional>
#include <type_traits>

namespace ardeno {

namespace detail {

template <typename T>
struct TaskResult {
    std::optional<std::conditional_t<std::is_void_v<T>, bool, T>> value = {};
    std::exception_ptr error = {};
    QEventLoop loop;

    bool isDone() const { return value.has_value() || error; }
};

template <typename T>
QCoro::Task<void> deliver(QCoro::Task<T> task, TaskResult<T> *result)
{
    try {
        if constexpr (std::is_void_v<T>) {
            co_await task;
            result->value = true;
        } else {
            result->value = co_await task;
        }
    } catch (...) {
        result->error = std::current_exception();
    }
    result->loop.quit();
}

} // namespace detail

// Runs the event loop until the task is done and gives its result or throws what it threw: for commands and tests,
// which have nothing else to do meanwhile.
template <typename T>
T blockOn(QCoro::Task<T> task)
{
    detail::TaskResult<T> result;
    const QCoro::Task<void> delivery = detail::deliver(std::move(task), &result);
    if (!result.isDone())
        result.loop.exec();
    if (result.error)
        std::rethrow_exception(result.error);
    if constexpr (!std::is_void_v<T>)
        return std::move(*result.value);
}

} // namespace ardeno
