// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QCoroTask>
#include <QUrl>

#include <chrono>
#include <optional>

namespace ardeno {

struct UpdateFetchOptions {
    QUrl manifest = {};
    std::chrono::milliseconds patience = std::chrono::seconds(8); // For the whole answer.
    qint64 mostBytes = 1 << 20;
    QByteArray furtherAuthorities = {}; // PEM; trusted beside those of the system.
};

// The bytes of the maker's manifest, or nothing for whatever reason. Over HTTPS alone, also when redirected, from the
// server itself and never from a cache. Only status 200 counts.
QCoro::Task<std::optional<QByteArray>> fetchManifest(UpdateFetchOptions options);

} // namespace ardeno
