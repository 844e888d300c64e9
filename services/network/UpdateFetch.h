// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/AppUpdateManifest.h"

#include <QByteArray>
#include <QCoroTask>
#include <QUrl>

#include <chrono>
#include <functional>
#include <optional>

namespace ardeno {

// Gets the maker's manifest, or nothing for whatever reason.
using UpdateFetch = std::function<QCoro::Task<std::optional<AppUpdateManifest>>()>;

struct UpdateFetchOptions {
    QUrl manifest = {};
    std::chrono::milliseconds patience = std::chrono::seconds(8); // For the whole answer.
    qint64 mostBytes = 1 << 20;
    QByteArray furtherAuthorities = {}; // PEM; trusted beside those of the system.
};

// Over HTTPS alone, also when redirected, from the server itself and never from a cache. Only status 200 counts. Empty
// when the program was built without the check.
UpdateFetch makeUpdateFetch(const UpdateFetchOptions &options);

} // namespace ardeno
