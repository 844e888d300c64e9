// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/VisibleText.h"
#include "json/Json.h"

#include <QByteArray>
#include <QString>

namespace ardeno {

// Standard output carries results only, standard error carries sentences. Both go to an OutputCapture while there is
// one. A terminal is never sent what is hidden in names. Long answers are printed as a whole.
void print(const QString &text);
// One line.
void printError(const QString &sentence);
// What is made for a terminal already.
void printBytes(const QByteArray &output);

// What a command printed elsewhere, in two open files.
void printFiles(int output, int errors);

// False when not all of the results could be written. Says so, unless the reader had enough.
bool isOutputComplete();

// Text of the user's or of other programs as a part of a line.
using VisibleText::oneLine;

template <JsonRecord R>
QByteArray jsonText(const R &record)
{
    return VisibleText::escapedJson(json::encode(record)) + '\n';
}

template <JsonRecord R>
void printJson(const R &record)
{
    printBytes(jsonText(record));
}

// Keeps what is printed while it lives, for a command that is carried out for another process. One at a time.
class OutputCapture final {
public:
    OutputCapture();
    OutputCapture(const OutputCapture &) = delete;
    OutputCapture &operator=(const OutputCapture &) = delete;
    ~OutputCapture();

    const QByteArray &output() const { return m_output; }

    const QByteArray &errors() const { return m_errors; }

private:
    friend void printBytes(const QByteArray &output);
    friend void printError(const QString &sentence);

    QByteArray m_output = {};
    QByteArray m_errors = {};
};

} // namespace ardeno
