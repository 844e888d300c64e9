// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"

#include <QList>
#include <QSet>
#include <QString>

#include <functional>
#include <optional>

namespace ardeno {

// An application that the desktop has no identifier for is known by the class of its windows. Nothing that is installed
// has such an identifier: the name of a desktop file holds no slash.
namespace WindowClass {

inline constexpr QLatin1String prefix("window-class/");

inline bool isIdentifier(const QString &appID)
{
    return appID.startsWith(prefix);
}

} // namespace WindowClass

// An application with at least one process. Its identifier is the desktop's stable one (a desktop-file id), or the
// class of its windows.
struct RunningApplication {
    QString id = {};        // Empty when the desktop knows no identifier for it.
    QString name = {};      // The localised name; empty when it has none.
    bool isRegular = false; // An ordinary application that a user sees: it has a normal window, minimised or not.

    bool operator==(const RunningApplication &) const = default;
};

// An application that could be opened.
struct InstalledApplication {
    QString id = {};
    QString name = {};
    QString iconName = {};

    bool operator==(const InstalledApplication &) const = default;
};

// The applications of the user's session. Used on the main thread; all functions answer at once.
class Workspace {
public:
    virtual ~Workspace() = default;

    virtual Capability availability() const = 0;
    // One entry per application, in no particular order; applications without an identifier may appear.
    virtual QList<RunningApplication> runningApplications() = 0;
    // Those that menus show, in no particular order.
    virtual QList<InstalledApplication> installedApplications() = 0;
    // The installed application that people may call so: by its identifier in any letter case, another name of its
    // desktop file or the class of its windows. Absent when there is none or several fit.
    virtual std::optional<InstalledApplication> findApplication(const QString &name) = 0;
    // Whether the user runs a program of this application, with windows that can be told to be its own or without.
    virtual bool isProgramRunning(const QString &appID) = 0;
    // From now on every window that may be one of these applications counts as theirs, in all parts of the desktop.
    virtual void setExcluded(const QSet<QString> &appIDs) = 0;
    // From now on calls the handler some time after applications may have started or ended; an empty handler ends it.
    // Nothing is done meanwhile.
    virtual void setChangeHandler(std::function<void()> handler) = 0;
};

} // namespace ardeno
