// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/network/UpdateFetch.h"

#include <QCoroSignal>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslConfiguration>
#include <QTimer>

#include <memory>

namespace ardeno {

namespace {

QNetworkRequest manifestRequest(const UpdateFetchOptions &options)
{
    QNetworkRequest request(options.manifest);
    // From https only to https.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(5);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setRawHeader("Accept", "application/json");
    request.setRawHeader("Cache-Control", "no-cache");
    if (!options.furtherAuthorities.isEmpty()) {
        QSslConfiguration security = QSslConfiguration::defaultConfiguration();
        security.addCaCertificates(QSslCertificate::fromData(options.furtherAuthorities));
        request.setSslConfiguration(security);
    }
    return request;
}

// Collects the answer, and breaks it off when it grows too long.
std::shared_ptr<QByteArray> collect(QNetworkReply *reply, qint64 mostBytes)
{
    auto body = std::make_shared<QByteArray>();
    reply->setReadBufferSize(mostBytes);
    QObject::connect(reply, &QNetworkReply::readyRead, reply, [reply, body, mostBytes] {
        body->append(reply->read(mostBytes + 1 - body->size()));
        if (body->size() > mostBytes)
            reply->abort();
    });
    return body;
}

} // namespace

QCoro::Task<std::optional<QByteArray>> fetchManifest(UpdateFetchOptions options)
{
    if (options.manifest.scheme() != "https")
        co_return std::nullopt;
    const QNetworkRequest request = manifestRequest(options);
    // Deleted later, with the reply, whose own signal resumes this.
    const std::unique_ptr<QNetworkAccessManager, QScopedPointerDeleteLater> network(new QNetworkAccessManager);
    QNetworkReply *const reply = network->get(request);
    const std::shared_ptr<QByteArray> body = collect(reply, options.mostBytes);
    QTimer::singleShot(options.patience, reply, &QNetworkReply::abort);
    if (!reply->isFinished())
        co_await qCoro(reply, &QNetworkReply::finished);
    if (reply->error() != QNetworkReply::NoError ||
        reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() != 200)
        co_return std::nullopt;
    body->append(reply->read(options.mostBytes + 1 - body->size()));
    if (body->size() > options.mostBytes)
        co_return std::nullopt;
    co_return *body;
}

} // namespace ardeno
