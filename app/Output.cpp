// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Output.h"

#include <cstdio>

namespace ardeno {

namespace {

void write(std::FILE *stream, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
    std::fflush(stream);
}

} // namespace

void print(const QString &text)
{
    write(stdout, text);
}

void printError(const QString &sentence)
{
    write(stderr, sentence + '\n');
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
