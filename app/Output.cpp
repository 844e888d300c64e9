// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Output.h"

#include "support/Failure.h"
#include "support/FileDescriptor.h"

#include <poll.h>

namespace ardeno {

namespace {

OutputCapture *capture = nullptr;
int outputProblem = 0; // Why standard output takes nothing any more.

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

void writeOutput(QByteArrayView bytes)
{
    if (outputProblem == 0)
        outputProblem = write(STDOUT_FILENO, bytes);
}

void writeErrors(QByteArrayView bytes)
{
    write(STDERR_FILENO, bytes); // There is nowhere to say that it failed.
}

void copy(int file, void (*writeTo)(QByteArrayView))
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

OutputCapture::OutputCapture()
{
    capture = this;
}

OutputCapture::~OutputCapture()
{
    capture = nullptr;
}

void print(const QString &text)
{
    printBytes(VisibleText::lines(text).toUtf8());
}

void printError(const QString &sentence)
{
    const QByteArray line = oneLine(sentence).toUtf8() + '\n';
    if (capture)
        capture->m_errors += line;
    else
        writeErrors(line);
}

void printBytes(const QByteArray &output)
{
    if (capture)
        capture->m_output += output;
    else
        writeOutput(output);
}

void printFiles(int output, int errors)
{
    copy(errors, writeErrors);
    copy(output, writeOutput);
}

bool isOutputComplete()
{
    if (outputProblem != 0 && outputProblem != EPIPE)
        printError(u"The command was carried out, but its answer could not be written: %1"_qs.arg(
            Failure::system(outputProblem).description()));
    return outputProblem == 0;
}

} // namespace ardeno
