// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/AppUpdateManifest.h"
#include "support/Observable.h"
#include "support/Preferences.h"

#include <QCoreApplication>
#include <QCoroTask>
#include <QDateTime>

#include <functional>
#include <memory>
#include <optional>

namespace ardeno {

enum class Force { No, Yes };

// Whether there is a newer version of this program.
class Updates final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::Updates)

public:
    template <typename T>
    using Published = PublishedBy<T, Updates>;
    // Gives the maker's manifest, or nothing for whatever reason. Empty: this build does not look.
    using Fetch = std::function<QCoro::Task<std::optional<AppUpdateManifest>>()>;

    Published<std::optional<AppUpdateManifest>> availableUpdate;
    Published<bool> checkingForUpdates;
    Published<std::optional<QString>> updateAnswer; // What a check said that the user asked for.

    Updates(Preferences &preferences, Fetch fetch);

    static QString currentAppVersion();

    bool canCheckForUpdates() const { return static_cast<bool>(m_fetch); }

    // Asks for a newer version, at most once a day unless forced. Failures leave the offer as it was; only a check
    // that was forced is answered, in updateAnswer.
    QCoro::Task<void> checkForUpdates(Force force);
    // Takes back the offer of a newer version.
    void dismissUpdate();

private:
    Preferences &m_preferences;
    Fetch m_fetch;
    std::optional<QDateTime> m_lastUpdateCheck;
    std::shared_ptr<bool> m_life = std::make_shared<bool>(true); // Gone with this object.
};

} // namespace ardeno
