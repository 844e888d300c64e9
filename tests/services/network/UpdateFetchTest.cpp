// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/network/UpdateFetch.h"
#include "services/AppUpdateManifest.h"
#include "tests/Printing.h"
#include "tests/services/network/ManifestServer.h"
#include "tests/support/Files.h"

#include <QCoreApplication>
#include <QSslSocket>
#include <QTcpServer>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace ardeno;

namespace {

const QByteArray goodManifest = R"({"latestVersion": "9.1", "releaseNotes": ["Faster"]})";
constexpr qint64 hugeBody = 50 << 20;

struct Received {
    bool isOver = false;
    std::optional<AppUpdateManifest> manifest = {};
};

QCoro::Task<void> receive(UpdateFetchOptions options, std::shared_ptr<Received> received)
{
    const std::optional<QByteArray> bytes = co_await fetchManifest(options);
    received->manifest = bytes ? AppUpdateManifest::fromJson(*bytes) : std::nullopt;
    received->isOver = true;
}

struct FetchFixture {
    ManifestServer server;

    UpdateFetchOptions options(const QUrl &url)
    {
        UpdateFetchOptions options;
        options.manifest = url;
        options.patience = std::chrono::seconds(60); // Of the tests' machine; see the cases about it.
        options.furtherAuthorities = server.certificate();
        return options;
    }

    static std::optional<AppUpdateManifest> fetched(const UpdateFetchOptions &options)
    {
        const auto received = std::make_shared<Received>();
        receive(options, received);
        REQUIRE(QTest::qWaitFor([&] { return received->isOver; }, 90'000));
        return received->manifest;
    }

    std::optional<AppUpdateManifest> fetched(const QString &path) { return fetched(options(server.url(path))); }

    void redirect(const QString &from, const QByteArray &to)
    {
        server.setAnswer(from, ManifestServer::status("302 Found", "Location: " + to + "\r\n"));
    }
};

// Writes without end, piece after piece as the other side takes them, and counts.
void writeForever(QSslSocket *connection, const std::shared_ptr<qint64> &written)
{
    const auto writeMore = [connection, written] {
        if (connection->bytesToWrite() + connection->encryptedBytesToWrite() > 0 || *written > hugeBody)
            return;
        const QByteArray piece(64 << 10, ' ');
        connection->write(piece);
        *written += piece.size();
    };
    QObject::connect(connection, &QSslSocket::encryptedBytesWritten, connection, writeMore);
    writeMore();
}

} // namespace

TEST_CASE_FIXTURE(FetchFixture, "only a complete answer with status 200 gives a manifest")
{
    server.setAnswer("/good", ManifestServer::status("200 OK", {}, goodManifest));
    server.setAnswer("/other", ManifestServer::status("203 Maybe", {}, goodManifest));
    server.setAnswer("/gone", ManifestServer::status("404 Not Found", {}, goodManifest));
    server.setAnswer("/broken", ManifestServer::status("500 Oops", {}, goodManifest));
    server.setAnswer("/wrong", ManifestServer::status("200 OK", {}, "<html>"));
    server.setAnswer("/empty", ManifestServer::status("200 OK"));
    server.setAnswer("/cut", [](QSslSocket *connection) {
        connection->write("HTTP/1.1 200 OK\r\nContent-Length: 4000\r\n\r\n" + goodManifest);
        connection->disconnectFromHost();
    });
    server.setAnswer("/closed", [](QSslSocket *connection) { connection->abort(); });
    REQUIRE(fetched("/good"));
    CHECK(fetched("/good")->latestVersion == "9.1");
    CHECK(server.requests("/good") == 2); // Never from a cache.
    for (const char *path : {"/other", "/gone", "/broken", "/wrong", "/empty", "/cut", "/closed"}) {
        CAPTURE(path);
        CHECK_FALSE(fetched(path));
    }
}

TEST_CASE_FIXTURE(FetchFixture, "nothing but https is asked, and no redirection leads elsewhere")
{
    QTcpServer plain;
    REQUIRE(plain.listen(QHostAddress::LocalHost));
    const QByteArray plainAddress = "http://127.0.0.1:" + QByteArray::number(plain.serverPort()) + "/good";
    const QTemporaryDir folder;
    const QString file = folder.filePath("manifest.json");
    writeFile(file, goodManifest);
    server.setAnswer("/good", ManifestServer::status("200 OK", {}, goodManifest));
    redirect("/moved", server.url("/good").toEncoded());
    redirect("/to-plain", plainAddress);
    redirect("/to-file", QUrl::fromLocalFile(file).toEncoded());
    redirect("/to-data", "data:application/json," + goodManifest.toPercentEncoding());
    redirect("/circle", server.url("/circle").toEncoded());
    CHECK(fetched("/moved"));
    for (const char *path : {"/to-plain", "/to-file", "/to-data", "/circle"}) {
        CAPTURE(path);
        CHECK_FALSE(fetched(path));
    }
    CHECK_FALSE(fetched(options(QUrl(plainAddress))));
    CHECK_FALSE(fetched(options(QUrl::fromLocalFile(file))));
    CHECK_FALSE(fetched(options(QUrl())));
    CHECK_FALSE(plain.hasPendingConnections());
}

TEST_CASE_FIXTURE(FetchFixture, "a server whose certificate nobody vouches for is not believed")
{
    server.setAnswer("/good", ManifestServer::status("200 OK", {}, goodManifest));
    UpdateFetchOptions untrusting = options(server.url("/good"));
    untrusting.furtherAuthorities.clear();
    CHECK_FALSE(fetched(untrusting));
    CHECK(server.requests("/good") == 0);
}

TEST_CASE_FIXTURE(FetchFixture, "the whole answer has to come in time")
{
    server.setAnswer("/silent", [](QSslSocket *) {});
    // Sends a little again and again: only a limit for the whole ends it.
    server.setAnswer("/dripping", [](QSslSocket *connection) {
        connection->write("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n");
        auto *const drip = new QTimer(connection);
        QObject::connect(drip, &QTimer::timeout, connection, [connection] { connection->write(" "); });
        drip->start(20);
    });
    for (const char *path : {"/silent", "/dripping"}) {
        CAPTURE(path);
        UpdateFetchOptions impatient = options(server.url(path));
        impatient.patience = std::chrono::milliseconds(1500);
        CHECK_FALSE(fetched(impatient));
        CHECK(server.requests(path) == 1);
    }
}

TEST_CASE_FIXTURE(FetchFixture, "an answer without end is broken off soon, also when it is compressed")
{
    const auto written = std::make_shared<qint64>(0);
    server.setAnswer("/huge", [written](QSslSocket *connection) {
        connection->write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(hugeBody) + "\r\n\r\n");
        writeForever(connection, written);
    });
    CHECK_FALSE(fetched("/huge"));
    CHECK(*written < hugeBody / 2);

    // The format of qCompress is a length before a zlib stream, which "deflate" means.
    const QByteArray small = qCompress(QByteArray(hugeBody, ' ') + goodManifest, 9).mid(4);
    server.setAnswer("/bomb", ManifestServer::status("200 OK", "Content-Encoding: deflate\r\n", small));
    CHECK_FALSE(fetched("/bomb"));
    server.setAnswer("/packed",
                     ManifestServer::status("200 OK", "Content-Encoding: deflate\r\n", qCompress(goodManifest).mid(4)));
    CHECK(fetched("/packed"));
}
