// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Json.h"

#include <QByteArray>
#include <QString>

namespace ardeno {

// Standard output carries results only, standard error carries sentences. Both go to an OutputCapture while there is
// one.
void print(const QString &text);
void printError(const QString &sentence);
// What another process has written.
void printBytes(const QByteArray &output, const QByteArray &errors);
// Text of the user's or of other programs, made safe for a terminal: no control characters, one line.
QString oneLine(const QString &text);

template <JsonRecord R>
void printJson(const R &record)
{
    print(QString::fromUtf8(json::encode(record)) + '\n');
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
    friend void printBytes(const QByteArray &output, const QByteArray &errors);

    QByteArray m_output = {};
    QByteArray m_errors = {};
};

} // namespace ardeno
