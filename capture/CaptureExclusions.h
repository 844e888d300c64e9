// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <QSet>
#include <QStringList>

namespace ardeno {

// What the user wants left out of every capture: applications, and websites with all their subdomains.
struct CaptureExclusions {
    QList<SavedApp> apps = {};
    QList<QString> domains = {}; // Each as domainFrom() gives it.

    QSet<QString> appIDs() const;
    // Whether the tab may be kept. A tab without a browser counts as one of "com.google.Chrome".
    bool allows(const SavedTab &tab) const;
    // Whether a website rule leaves the address in. One of the web whose host cannot be found is left out while there
    // is any such rule; one of the browser itself is judged by the pages that it names.
    bool allowsPage(const QString &address) const;
    // The bare host of a domain or of an http or https address, lower case, without port and path; absent when the
    // text is neither, holds a wildcard, or names a user.
    static std::optional<QString> domainFrom(const QString &text);

    bool operator==(const CaptureExclusions &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{Field{"apps", &CaptureExclusions::apps}, Field{"domains", &CaptureExclusions::domains}};
    }
};

} // namespace ardeno
