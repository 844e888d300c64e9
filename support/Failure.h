// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <exception>

namespace ardeno {

// The one error type of storage and desktop operations. The description is a whole sentence that a user can read.
class Failure final : public std::exception {
public:
    Failure(QString domain, int code, QString description);

    // The failure of a system call: domain "POSIX", the system's own words ("No space left on device.").
    static Failure system(int errorNumber);
    // The same with the file named: "“checkpoints.json”: Permission denied."
    static Failure system(int errorNumber, const QString &fileName);

    // Whatever is being handled, in a catch block, as a failure: what memory or a library could not do is one, too.
    static Failure current();

    const QString &domain() const { return m_domain; }

    int code() const { return m_code; }

    const QString &description() const { return m_description; }

    // The description as UTF-8, for test reports and uncaught exceptions.
    const char *what() const noexcept override { return m_what.constData(); }

private:
    QString m_domain;
    int m_code;
    QString m_description;
    QByteArray m_what;
};

} // namespace ardeno
