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

QCoro::Task<std::optional<AppUpdateManifest>> fetchManifest(std::shared_ptr<QNetworkAccessManager> network,
                                                            UpdateFetchOptions options)
{
    if (options.manifest.scheme() != "https")
        co_return std::nullopt;
    const QNetworkRequest request = manifestRequest(options);
    // Deleted later, as it is its own signal that resumes this.
    const std::unique_ptr<QNetworkReply, QScopedPointerDeleteLater> reply(network->get(request));
    const std::shared_ptr<QByteArray> body = collect(reply.get(), options.mostBytes);
    QTimer::singleShot(options.patience, reply.get(), &QNetworkReply::abort);
    if (!reply->isFinished())
        co_await qCoro(reply.get(), &QNetworkReply::finished);
    if (reply->error() != QNetworkReply::NoError ||
        reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() != 200)
        co_return std::nullopt;
    body->append(reply->read(options.mostBytes + 1 - body->size()));
    if (body->size() > options.mostBytes)
        co_return std::nullopt;
    co_return AppUpdateManifest::fromJson(*body);
}

} // namespace

UpdateFetch makeUpdateFetch(const UpdateFetchOptions &options)
{
    // The network's machinery is made with the first check.
    const auto network = std::make_shared<std::shared_ptr<QNetworkAccessManager>>();
    return [network, options] {
        if (!*network)
            *network = std::make_shared<QNetworkAccessManager>();
        return fetchManifest(*network, options);
    };
}

} // namespace ardeno
