// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/VisibleText.h"
#include "json/Json.h"

#include <QByteArray>
#include <QString>

namespace ardeno {

// Text of the user's or of other programs as a part of a line.
using VisibleText::oneLine;

template <JsonRecord R>
QByteArray jsonText(const R &record)
{
    return VisibleText::escapedJson(json::encode(record)) + '\n';
}

// Where a command writes: standard output carries results only, standard error carries sentences. A terminal is never
// sent what is hidden in names. Long answers are printed as a whole.
class Output {
public:
    Output() = default;
    virtual ~Output() = default;
    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;

    void print(const QString &text) { writeResult(VisibleText::lines(text).toUtf8()); }

    // One line.
    void printError(const QString &sentence) { writeError(oneLine(sentence).toUtf8() + '\n'); }

    // What is made for a terminal already.
    void printBytes(const QByteArray &result) { writeResult(result); }

    template <JsonRecord R>
    void printJson(const R &record)
    {
        writeResult(jsonText(record));
    }

    // What a command printed elsewhere, in two open files. Throws Failure.
    void printFiles(int results, int errors);

protected:
    virtual void writeResult(QByteArrayView bytes) = 0;
    virtual void writeError(QByteArrayView bytes) = 0;
};

// The streams of this process.
class StandardOutput final : public Output {
public:
    // False when not all of the results could be written. Says so, unless the reader had enough.
    bool isComplete();

protected:
    void writeResult(QByteArrayView bytes) override;
    void writeError(QByteArrayView bytes) override;

private:
    int m_problem = 0; // Why standard output takes nothing any more.
};

// Keeps what is printed, for a command that is carried out for another process.
class KeptOutput final : public Output {
public:
    const QByteArray &results() const { return m_results; }

    const QByteArray &errors() const { return m_errors; }

protected:
    void writeResult(QByteArrayView bytes) override { m_results += bytes; }

    void writeError(QByteArrayView bytes) override { m_errors += bytes; }

private:
    QByteArray m_results = {};
    QByteArray m_errors = {};
};

} // namespace ardeno
