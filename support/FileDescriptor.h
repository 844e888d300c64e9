// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace ardeno {

// An open file of the system, closed at the end.
class FileDescriptor final {
public:
    explicit FileDescriptor(int number = -1) : m_number(number) {}

    ~FileDescriptor() { close(); }

    FileDescriptor(FileDescriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) {}

    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }

    explicit operator bool() const { return m_number >= 0; }

    int number() const { return m_number; }

    void close()
    {
        if (m_number >= 0)
            ::close(std::exchange(m_number, -1));
    }

private:
    int m_number;
};

// Calls again while a signal interrupts.
template <typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

} // namespace ardeno
