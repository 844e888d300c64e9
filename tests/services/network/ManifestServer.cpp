// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/network/ManifestServer.h"

#include "tests/support/Files.h"

#include <QHostAddress>
#include <QProcess>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslSocket>

#include <memory>

namespace ardeno {

ManifestServer::ManifestServer()
{
    const QString key = m_folder.filePath("key.pem");
    const QString certificate = m_folder.filePath("certificate.pem");
    QProcess openssl; // It talks much, which nobody reads.
    openssl.start("openssl", {"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=Tests",
                              "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", key, "-out", certificate});
    REQUIRE(openssl.waitForFinished(60'000));
    REQUIRE(openssl.exitCode() == 0);
    m_certificate = fileBytes(certificate);
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(QSslCertificate(m_certificate));
    configuration.setPrivateKey(QSslKey(fileBytes(key), QSsl::Rsa));
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    setSslConfiguration(configuration);
    REQUIRE(listen(QHostAddress::LocalHost));
    connect(this, &QTcpServer::pendingConnectionAvailable, this, [this] {
        while (auto *const connection = qobject_cast<QSslSocket *>(nextPendingConnection()))
            serve(connection);
    });
}

QUrl ManifestServer::url(const QString &path) const
{
    return QUrl(QString("https://127.0.0.1:%1%2").arg(serverPort()).arg(path));
}

void ManifestServer::serve(QSslSocket *connection)
{
    const auto request = std::make_shared<QByteArray>();
    const auto read = [this, connection, request] {
        request->append(connection->readAll());
        if (request->endsWith("\r\n\r\n"))
            answer(connection, std::exchange(*request, {}));
    };
    connect(connection, &QIODevice::readyRead, this, read);
    connect(connection, &QAbstractSocket::disconnected, connection, &QObject::deleteLater);
    read(); // What came before the connection was handed out.
}

void ManifestServer::answer(QSslSocket *connection, const QByteArray &request)
{
    const QString path = QString::fromUtf8(request.split(' ').value(1));
    ++m_requests[path];
    m_answers.value(path, status("404 Not Found"))(connection);
}

ManifestServer::Answer ManifestServer::status(const QByteArray &line, const QByteArray &headers, const QByteArray &body)
{
    return [=](QSslSocket *connection) {
        connection->write("HTTP/1.1 " + line + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" +
                          headers + "\r\n" + body);
    };
}

} // namespace ardeno
