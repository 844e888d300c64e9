// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QSslServer>
#include <QTemporaryDir>
#include <QUrl>

#include <functional>

class QSslSocket;

namespace ardeno {

// A web server on the loopback address with a certificate of its own, in the thread of the test.
class ManifestServer final : public QSslServer {
public:
    // Writes an answer; the connection is then the answer's.
    using Answer = std::function<void(QSslSocket *)>;

    ManifestServer();

    QByteArray certificate() const { return m_certificate; }

    QUrl url(const QString &path) const;

    void setAnswer(const QString &path, const Answer &answer) { m_answers.insert(path, answer); }

    // How often it was asked for this path.
    int requests(const QString &path) const { return m_requests.value(path); }

    static Answer status(const QByteArray &line, const QByteArray &headers = {}, const QByteArray &body = {});

private:
    void serve(QSslSocket *connection);
    void answer(QSslSocket *connection, const QByteArray &request);

    QTemporaryDir m_folder;
    QByteArray m_certificate;
    QHash<QString, Answer> m_answers;
    QHash<QString, int> m_requests;
};

} // namespace ardeno
