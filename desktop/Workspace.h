// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"
#include "json/Field.h"

#include <QList>
#include <QSet>
#include <QString>

#include <functional>
#include <optional>
#include <tuple>

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

// By what an application's windows and processes are told, as far as the desktop knew; in lower case, sorted. Kept with
// what must not be shown, for the day on which the application is no longer installed and still runs.
struct ApplicationMarks {
    QString id = {};
    QList<QString> names = {};    // Its windows are told by these alone.
    QList<QString> hints = {};    // With names of programs, words of names and the like.
    QList<QString> programs = {}; // Of its commands, as they are written there.

    bool operator==(const ApplicationMarks &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &ApplicationMarks::id},
            Field{"names", &ApplicationMarks::names},
            Field{"hints", &ApplicationMarks::hints},
            Field{"programs", &ApplicationMarks::programs},
        };
    }
};

// The applications of the user's desktop session. Used on the main thread; all functions answer at once.
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
    // Of an application that is installed, hidden, removed or excluded; absent when nothing is known of it.
    virtual std::optional<ApplicationMarks> marks(const QString &appID) = 0;
    // From now on every window that may be one of these applications counts as theirs, in all parts of the desktop.
    // The marks are those of earlier days.
    virtual void setExcluded(const QSet<QString> &appIDs, const QList<ApplicationMarks> &marks) = 0;
    // From now on calls the handler some time after applications may have started or ended; an empty handler ends it.
    // Nothing is done meanwhile.
    virtual void setChangeHandler(std::function<void()> handler) = 0;
};

} // namespace ardeno
