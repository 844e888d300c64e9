// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Output.h"

#include "support/Failure.h"
#include "support/FileDescriptor.h"

#include <functional>

#include <poll.h>

namespace ardeno {

namespace {

// Whether the stream can be written to again, where it does not wait by itself.
bool waitFor(int stream)
{
    pollfd ready{.fd = stream, .events = POLLOUT, .revents = 0};
    return errno == EAGAIN && uninterrupted([&] { return ::poll(&ready, 1, -1); }) > 0;
}

// 0, or why not everything was written.
int write(int stream, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t written =
            uninterrupted([&] { return ::write(stream, bytes.data(), static_cast<size_t>(bytes.size())); });
        if (written >= 0)
            bytes = bytes.sliced(written);
        else if (!waitFor(stream))
            return errno;
    }
    return 0;
}

void copy(int file, const std::function<void(QByteArrayView)> &writeTo)
{
    QByteArray piece(1 << 18, Qt::Uninitialized);
    for (off_t at = 0;;) {
        const ssize_t length =
            uninterrupted([&] { return ::pread(file, piece.data(), static_cast<size_t>(piece.size()), at); });
        if (length < 0)
            throw Failure::system(errno, "answer");
        if (length == 0)
            return;
        writeTo(QByteArrayView(piece).first(length));
        at += length;
    }
}

} // namespace

void Output::printFiles(int results, int errors)
{
    copy(errors, [this](QByteArrayView bytes) { writeError(bytes); });
    copy(results, [this](QByteArrayView bytes) { writeResult(bytes); });
}

void StandardOutput::writeResult(QByteArrayView bytes)
{
    if (m_problem == 0)
        m_problem = write(STDOUT_FILENO, bytes);
}

void StandardOutput::writeError(QByteArrayView bytes)
{
    write(STDERR_FILENO, bytes); // There is nowhere to say that it failed.
}

bool StandardOutput::isComplete()
{
    if (m_problem != 0 && m_problem != EPIPE)
        printError(u"The command was carried out, but its answer could not be written: %1"_qs.arg(
            Failure::system(m_problem).description()));
    return m_problem == 0;
}

} // namespace ardeno
