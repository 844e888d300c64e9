// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Output.h"

#include <cstdio>

namespace ardeno {

namespace {

OutputCapture *capture = nullptr;

void write(std::FILE *stream, const QByteArray &bytes)
{
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
    std::fflush(stream);
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

void printBytes(const QByteArray &output, const QByteArray &errors)
{
    if (capture) {
        capture->m_output += output;
        capture->m_errors += errors;
        return;
    }
    write(stdout, output);
    write(stderr, errors);
}

void print(const QString &text)
{
    printBytes(text.toUtf8(), {});
}

void printError(const QString &sentence)
{
    printBytes({}, sentence.toUtf8() + '\n');
}

QString oneLine(const QString &text)
{
    QString line = text;
    for (QChar &character : line) {
        const bool isBreak = character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
        if (isBreak || character.category() == QChar::Other_Control)
            character = ' ';
    }
    return line;
}

} // namespace ardeno
