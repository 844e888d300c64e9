// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <functional>
#include <utility>

// A process that does part of a test; it is ended with the object.
class Child final {
public:
    using Signal = std::function<void()>;

    // Returns when the work has called its signal.
    explicit Child(const std::function<void(const Signal &ready)> &work)
    {
        int ends[2];
        if (::pipe(ends) != 0)
            std::abort();
        m_id = ::fork();
        if (m_id == 0)
            run(work, ends[1]);
        ::close(ends[1]);
        char byte = 0;
        while (::read(ends[0], &byte, 1) < 0) {
        }
        ::close(ends[0]);
    }

    ~Child()
    {
        if (m_id > 0)
            end(SIGKILL);
    }

    Child(Child &&other) noexcept : m_id(std::exchange(other.m_id, -1)) {}

    Child &operator=(Child &&) = delete;

    pid_t id() const { return m_id; }

    void end(int signal)
    {
        ::kill(m_id, signal);
        wait();
    }

    // The exit status, -1 when a signal ended it.
    int wait()
    {
        int status = -1;
        ::waitpid(std::exchange(m_id, -1), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    [[noreturn]] static void run(const std::function<void(const Signal &)> &work, int readyEnd)
    {
        try {
            work([readyEnd] {
                if (::write(readyEnd, "", 1) != 1)
                    ::_exit(2);
            });
        } catch (...) {
            ::_exit(1);
        }
        ::_exit(0);
    }

    pid_t m_id = -1;
};
