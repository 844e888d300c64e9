// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Failure.h"
#include "support/Worker.h"

#include <QByteArray>
#include <QHash>
#include <QList>

#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <type_traits>
#include <utility>

namespace ardeno {

// The mounted disks that may never answer: those of networks and of programs, and what was plugged in. Of each one
// question is asked at a time, on a thread that is left to itself when no answer comes; until it does, or the disk is
// mounted anew, nobody asks again. For several threads.
class SlowMounts final {
public:
    using Clock = std::chrono::steady_clock;

    // The text of the system's list of mounts, and the home, whose disk everything waits for anyway.
    SlowMounts(std::function<QByteArray()> table, QByteArray home);

    // Those of this machine; they outlive every thread.
    static SlowMounts &ofMachine();

    // A path is meant as it is written here: links that lead elsewhere have been followed.
    bool isSlow(const QByteArray &path) { return visitorOf(path) != nullptr; }

    // The answer to a question about the path, which must own all that it uses; absent when the disk gave none in time.
    template <typename Question>
    std::optional<std::invoke_result_t<Question>> ask(const QByteArray &path, Question question, Clock::duration time)
    {
        const std::shared_ptr<Visitor> visitor = visitorOf(path);
        if (!visitor)
            return question();
        if (!visitor->enter(time))
            return std::nullopt;
        using Answer = std::invoke_result_t<Question>;
        const auto promise = std::make_shared<std::promise<Answer>>();
        std::future<Answer> answer = promise->get_future();
        const auto visit = [visitor, promise, question = std::move(question)] {
            try {
                Answer found = question();
                visitor->leave();
                promise->set_value(std::move(found));
            } catch (...) {
                visitor->leave();
                promise->set_exception(std::current_exception());
            }
        };
        try {
            startWorker(visit).detach();
        } catch (const Failure &) {
            visitor->leave();
            return std::nullopt;
        }
        return answer.wait_for(time) == std::future_status::ready ? std::optional(answer.get()) : std::nullopt;
    }

private:
    // Who asks a mount now.
    class Visitor final {
    public:
        // False when another one has been there for longer than this, or stays so long.
        bool enter(Clock::duration time);
        void leave();

    private:
        std::mutex m_mutex;
        std::condition_variable m_hasLeft;
        bool m_isThere = false;
        Clock::time_point m_since = {};
    };

    struct Mount {
        QByteArray point = {};
        QByteArray identity = {}; // Another one in the same place has another.
        bool isSlow = false;
    };

    static Mount parsed(const QByteArray &line);
    std::shared_ptr<Visitor> visitorOf(const QByteArray &path);
    void readTable();

    std::function<QByteArray()> m_table;
    QByteArray m_home;
    std::mutex m_mutex;
    Clock::time_point m_readAt = {};
    QList<Mount> m_mounts = {}; // Innermost last.
    QHash<QByteArray, std::shared_ptr<Visitor>> m_visitors = {};
};

} // namespace ardeno
