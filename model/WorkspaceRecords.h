// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Date.h"
#include "support/WebAddress.h"
#include "json/Field.h"

#include <QList>
#include <QString>
#include <QUuid>

#include <optional>
#include <tuple>
#include <variant>

namespace ardeno {

// A group of checkpoints.
struct Project {
    QUuid id = QUuid::createUuid();
    QString name = {};
    Date createdAt = Date::now();
    bool isSample = false;
    std::optional<bool> isExample = {};
    std::optional<QString> blockedReason = {}; // Absent: the project is not blocked. Empty: blocked without a reason.
    std::optional<Date> archivedAt = {};       // Absent: the project is not archived.

    // The reason, or "No reason added yet." when there is none to show.
    QString blockerDescription() const;

    // The project that shows newcomers what a saved one looks like. Its identifiers never change.
    static Project sample();

    bool operator==(const Project &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &Project::id},
            Field{"name", &Project::name},
            Field{"createdAt", &Project::createdAt},
            Field{"isSample", &Project::isSample},
            Field{"isExample", &Project::isExample},
            Field{"blockedReason", &Project::blockedReason},
            Field{"archivedAt", &Project::archivedAt},
        };
    }
};

// An application, identified as the desktop does (bundle identifier, desktop-file id).
struct SavedApp {
    QString id = {};
    QString name = {};

    bool operator==(const SavedApp &) const = default;

    static constexpr auto fields() { return std::tuple{Field{"id", &SavedApp::id}, Field{"name", &SavedApp::name}}; }
};

size_t qHash(const SavedApp &app, size_t seed = 0);

// One page that was open in a browser.
struct SavedTab {
    QUuid id = QUuid::createUuid();
    QString title = {};
    QString url = {};  // As the browser reported it, verbatim.
    qint64 window = 0; // The browser window's ordinal at capture, from 1.
    std::optional<QString> browserID = {};
    std::optional<QString> browserName = {};
    std::optional<QString> browserWindowID = {};
    std::optional<Date> capturedAt = {};

    // The address when it is http or https with a host, else absent. Only such an address is ever opened or compared.
    std::optional<WebAddress> safeURL() const;

    bool operator==(const SavedTab &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &SavedTab::id},
            Field{"title", &SavedTab::title},
            Field{"url", &SavedTab::url},
            Field{"window", &SavedTab::window},
            Field{"browserID", &SavedTab::browserID},
            Field{"browserName", &SavedTab::browserName},
            Field{"browserWindowID", &SavedTab::browserWindowID},
            Field{"capturedAt", &SavedTab::capturedAt},
        };
    }
};

size_t qHash(const SavedTab &tab, size_t seed = 0);

// A rectangle in points, origin at the top left of the desktop, y growing downwards.
struct WindowRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double maxX() const { return x + width; }

    double maxY() const { return y + height; }

    bool operator==(const WindowRect &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"x", &WindowRect::x},
            Field{"y", &WindowRect::y},
            Field{"width", &WindowRect::width},
            Field{"height", &WindowRect::height},
        };
    }
};

// Where a window stood, and what it showed.
struct SavedWindow {
    QUuid id = QUuid::createUuid();
    QString appID = {};
    QString appName = {};
    QString title = {};
    WindowRect frame = {};
    quint32 displayID = 0;
    WindowRect displayFrame = {}; // The usable frame of that display at capture.
    quint32 windowID = 0;         // The window server's number of the window at capture.
    qint32 processID = 0;
    std::optional<QString> displayName = {};
    std::optional<QString> locationURL = {}; // Path of the folder shown by a file browser.
    std::optional<QString> documentURL = {}; // Path of the document shown by any other window.
    std::optional<qint64> desktop = {};      // The number of its virtual desktop, from 0, where there are several.
    std::optional<QString> desktopName = {};
    std::optional<QList<QString>> states = {}; // Words of WindowStates. Absent: not known. Empty: a plain window.

    bool operator==(const SavedWindow &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &SavedWindow::id},
            Field{"appID", &SavedWindow::appID},
            Field{"appName", &SavedWindow::appName},
            Field{"title", &SavedWindow::title},
            Field{"frame", &SavedWindow::frame},
            Field{"displayID", &SavedWindow::displayID},
            Field{"displayFrame", &SavedWindow::displayFrame},
            Field{"windowID", &SavedWindow::windowID},
            Field{"processID", &SavedWindow::processID},
            Field{"displayName", &SavedWindow::displayName},
            Field{"locationURL", &SavedWindow::locationURL},
            Field{"documentURL", &SavedWindow::documentURL},
            Field{"desktop", &SavedWindow::desktop},
            Field{"desktopName", &SavedWindow::desktopName},
            Field{"states", &SavedWindow::states},
        };
    }
};

// A saved moment of the workspace.
struct Checkpoint {
    QUuid id = QUuid::createUuid(); // Also the name of its media folder.
    QString title = {};
    std::optional<QUuid> projectID = {};            // Absent only in data older than projects.
    std::optional<QList<SavedWindow>> windows = {}; // Absent: positions were not recorded. Empty: there were none.
    Date createdAt = Date::now();
    QString objective = {};
    QString decision = {}; // A note of older data, merged into the objective when loaded.
    QString nextStep = {};
    QList<SavedApp> apps = {};
    QList<SavedTab> tabs = {};
    std::optional<QString> screenshot = {}; // Full path of a file in the media folder.
    std::optional<QString> recording = {};  // Full path of a file in the media folder.
    QString captureNote = {};
    bool isSample = false;
    std::optional<bool> isExample = {};

    // What lists show: the first line of the next step without its list marker, else the title.
    QString displayName() const;
    // Moves a non-empty decision to the end of the objective.
    void mergeLegacyDecision();

    // The checkpoints of the sample project, whose dates count from now; the newest, and all of them with it first.
    static Checkpoint sample();
    static QList<Checkpoint> sampleHistory();

    bool operator==(const Checkpoint &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &Checkpoint::id},
            Field{"title", &Checkpoint::title},
            Field{"projectID", &Checkpoint::projectID},
            Field{"windows", &Checkpoint::windows},
            Field{"createdAt", &Checkpoint::createdAt},
            Field{"objective", &Checkpoint::objective},
            Field{"decision", &Checkpoint::decision},
            Field{"nextStep", &Checkpoint::nextStep},
            Field{"apps", &Checkpoint::apps},
            Field{"tabs", &Checkpoint::tabs},
            Field{"screenshot", &Checkpoint::screenshot},
            Field{"recording", &Checkpoint::recording},
            Field{"captureNote", &Checkpoint::captureNote},
            Field{"isSample", &Checkpoint::isSample},
            Field{"isExample", &Checkpoint::isExample},
        };
    }
};

// The root of the library file.
struct WorkspaceLibrary {
    static constexpr qint64 currentVersion = 2;

    qint64 version = currentVersion;
    QList<Project> projects = {};       // In the user's order.
    QList<Checkpoint> checkpoints = {}; // Of all projects, in one list.

    // Merges every legacy decision and gives every checkpoint without a valid project one, named after its title.
    void assignMissingProjects();

    bool operator==(const WorkspaceLibrary &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"version", &WorkspaceLibrary::version},
            Field{"projects", &WorkspaceLibrary::projects},
            Field{"checkpoints", &WorkspaceLibrary::checkpoints},
        };
    }
};

// The picture that a checkpoint had, as its record named it.
struct RemovedPicture {
    QString screenshot = {};

    bool operator==(const RemovedPicture &) const = default;
};

// The window positions that a checkpoint had.
struct RemovedLayout {
    std::optional<QList<SavedWindow>> windows = {};

    bool operator==(const RemovedLayout &) const = default;
};

// One app or tab taken out of a checkpoint, with the place it had in its list, or its picture or window positions.
struct RemovedWorkspaceItem {
    std::variant<SavedApp, SavedTab, RemovedPicture, RemovedLayout> item = {};
    qsizetype index = 0;

    bool operator==(const RemovedWorkspaceItem &) const = default;
};

// What an undo puts back; kept in memory only.
struct WorkspaceRemoval {
    QUuid checkpointID = {};
    RemovedWorkspaceItem item = {};

    bool operator==(const WorkspaceRemoval &) const = default;
};

// Identifiers are upper-case canonical text wherever they are written.
QString uuidText(const QUuid &id);

} // namespace ardeno
