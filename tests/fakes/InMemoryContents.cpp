// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fakes/InMemoryParts.h"

#include <QCoroTimer>
#include <QFileInfo>

#include <chrono>

namespace ardeno::fakes {

namespace {

class InMemoryWorkspace final : public Available<Workspace> {
public:
    using Available::Available;

    QList<RunningApplication> runningApplications() override { return m_desktop.running; }

    QList<InstalledApplication> installedApplications() override { return m_desktop.installed; }

    std::optional<InstalledApplication> findApplication(const QString &name) override
    {
        for (const InstalledApplication &application : m_desktop.installed) {
            if (application.id.compare(name, Qt::CaseInsensitive) == 0)
                return application;
        }
        return std::nullopt;
    }

    bool isProgramRunning(const QString &appID) override { return m_desktop.programsRunning.contains(appID); }

    std::optional<ApplicationMarks> marks(const QString &appID) override
    {
        const auto known = m_desktop.marks.constFind(appID);
        return known == m_desktop.marks.cend() ? std::nullopt : std::optional(*known);
    }

    void setExcluded(const QSet<QString> &appIDs, const QList<ApplicationMarks> &marks) override
    {
        m_desktop.excludedAppIDs = appIDs;
        m_desktop.marksTold = marks;
    }

    void setChangeHandler(std::function<void()> handler) override
    {
        m_desktop.applicationsChanged = std::move(handler);
    }
};

class InMemoryTabSource final : public InMemory<TabSource> {
public:
    using InMemory::InMemory;

    QList<Browser> furtherBrowsers() override { return {}; }

    Capability availability(const QString &) const override { return Capability::available(); }

    bool isRunning(const QString &browserID) override { return m_desktop.tabRecords.contains(browserID); }

    QCoro::Task<TabReport> openTabs(Browser browser, QString) override
    {
        m_desktop.browsersRead.append(browser.id);
        co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        const QString records = m_desktop.tabRecords.value(browser.id);
        if (records.isNull())
            throw notAvailable(browser.name + " cannot be read.");
        co_return TabReport{.records = records};
    }

    QCoro::Task<BrowserWindows> browserWindows() override { co_return BrowserWindows(m_desktop.browserWindows); }
};

class InMemoryFileBrowser final : public Available<FileBrowser> {
public:
    using Available::Available;

    QCoro::Task<QList<WindowLocation>> locations() override
    {
        co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        co_return m_desktop.folders;
    }
};

class InMemoryDocuments final : public Available<Documents> {
public:
    using Available::Available;

    QCoro::Task<QList<WindowLocation>> locations(QSet<qint64> processIDs) override
    {
        m_desktop.processesAskedAbout.append(processIDs);
        co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        QList<WindowLocation> found;
        for (const WindowLocation &location : m_desktop.documents) {
            if (location.processID && processIDs.contains(*location.processID))
                found.append(location);
        }
        co_return found;
    }

    QCoro::Task<QList<WindowLocation>> locationsOf(QString applicationID) override
    {
        QSet<qint64> processIDs;
        for (const WindowInfo &window : m_desktop.windows) {
            if (window.applicationID == applicationID && window.processID)
                processIDs.insert(*window.processID);
        }
        co_return co_await locations(processIDs);
    }

    QCoro::Task<QStringList> held(QString, QStringList paths) override
    {
        paths.removeIf([this](const QString &path) { return !m_desktop.heldPaths.contains(path); });
        co_return paths;
    }
};

// The files are real ones, but for those whose disk is silent.
class InMemoryFiles final : public InMemory<Files> {
public:
    using InMemory::InMemory;

    QCoro::Task<QHash<QString, PathFacts>> facts(QStringList paths) override
    {
        co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        QHash<QString, PathFacts> found;
        for (const QString &path : paths) {
            const QFileInfo file(path);
            const auto kind = m_desktop.silentPaths.contains(path) ? PathFacts::Kind::Silent
                              : file.isDir()                       ? PathFacts::Kind::Folder
                              : file.isFile()                      ? PathFacts::Kind::File
                              : file.exists()                      ? PathFacts::Kind::Other
                                                                   : PathFacts::Kind::Missing;
            found.insert(path, {kind, file.exists() ? file.canonicalFilePath() : path});
        }
        co_return found;
    }
};

} // namespace

void addContents(InMemoryDesktop &memory, Desktop *desktop)
{
    desktop->workspace = std::make_unique<InMemoryWorkspace>(memory);
    desktop->tabSource = std::make_unique<InMemoryTabSource>(memory);
    desktop->fileBrowser = std::make_unique<InMemoryFileBrowser>(memory);
    desktop->documents = std::make_unique<InMemoryDocuments>(memory);
    desktop->files = std::make_unique<InMemoryFiles>(memory);
}

} // namespace ardeno::fakes
