// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fakes/InMemoryDesktop.h"

#include <QCoroTimer>

#include <chrono>
#include <utility>

namespace ardeno::fakes {

namespace {

class InMemoryWorkspace final : public Workspace {
public:
    explicit InMemoryWorkspace(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    Capability availability() const override { return Capability::available(); }

    QList<RunningApplication> runningApplications() override { return m_desktop.running; }

    QList<InstalledApplication> installedApplications() override { return m_desktop.installed; }

    void setChangeHandler(std::function<void()> handler) override
    {
        m_desktop.applicationsChanged = std::move(handler);
    }

private:
    InMemoryDesktop &m_desktop;
};

class InMemoryWindowServer final : public WindowServer {
public:
    explicit InMemoryWindowServer(const InMemoryDesktop &desktop) : m_desktop(desktop) {}

    Capability availability() const override { return Capability::available(); }

    QList<Display> displays() override { return m_desktop.displays; }

    QList<WindowInfo> windows() override { return m_desktop.windows; }

private:
    const InMemoryDesktop &m_desktop;
};

class InMemoryScreenCapture final : public ScreenCapture {
public:
    explicit InMemoryScreenCapture(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    Capability availability() const override { return Capability::available(); }

    Capability exclusionAvailability() const override { return Capability::available(); }

    QList<CaptureDisplay> displays() override
    {
        QList<CaptureDisplay> displays;
        for (const Display &display : m_desktop.displays)
            displays.append({display.id, display.bounds});
        return displays;
    }

    void prepareExclusion(const QSet<QString> &appIDs) override { m_desktop.preparedExclusions.append(appIDs); }

    QCoro::Task<Canvas> compose(CanvasRequest request) override
    {
        m_desktop.requests.append(request);
        // A real picture takes its time: whoever asked goes on meanwhile.
        co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        if (m_desktop.whileComposing)
            m_desktop.whileComposing();
        if (m_desktop.pictureFailure)
            throw Failure(*m_desktop.pictureFailure);
        const qsizetype bytes = qsizetype(request.size.width()) * request.size.height() * 4;
        co_return Canvas{request.size, QByteArray(bytes, '\x40')};
    }

private:
    InMemoryDesktop &m_desktop;
};

class InMemoryScreenAccess final : public ScreenAccess {
public:
    explicit InMemoryScreenAccess(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    bool check() override { return m_desktop.screenAccess; }

    bool ask() override
    {
        ++m_desktop.timesAsked;
        m_desktop.screenAccess = m_desktop.screenAccess || m_desktop.consentOnAsking;
        return m_desktop.screenAccess;
    }

private:
    InMemoryDesktop &m_desktop;
};

class InMemoryTabSource final : public TabSource {
public:
    explicit InMemoryTabSource(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    QList<Browser> furtherBrowsers() const override { return {}; }

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

private:
    InMemoryDesktop &m_desktop;
};

class InMemoryFileBrowser final : public FileBrowser {
public:
    explicit InMemoryFileBrowser(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    Capability availability() const override { return Capability::available(); }

    QCoro::Task<QList<WindowLocation>> locations() override
    {
        co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        co_return m_desktop.folders;
    }

private:
    InMemoryDesktop &m_desktop;
};

class InMemoryDocuments final : public Documents {
public:
    explicit InMemoryDocuments(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    Capability availability() const override { return Capability::available(); }

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

private:
    InMemoryDesktop &m_desktop;
};

class InMemoryMailProgram final : public MailProgram {
public:
    explicit InMemoryMailProgram(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    bool openDraft(const QUrl &address) override
    {
        if (m_desktop.hasMailProgram)
            m_desktop.mailDrafts.append(address);
        return m_desktop.hasMailProgram;
    }

private:
    InMemoryDesktop &m_desktop;
};

} // namespace

void InMemoryDesktop::addApplication(const QString &id, const QString &name, const WindowRect &frame,
                                     const QString &title)
{
    const auto number = quint32(windows.size()) + 1;
    running.append({.id = id, .name = name, .isRegular = true});
    windows.append({.windowID = number,
                    .processID = qint32(1000 + number),
                    .applicationID = id,
                    .applicationName = name,
                    .title = title,
                    .frame = frame,
                    .isNormalLayer = true});
}

void InMemoryDesktop::addDisplay(quint32 id, const WindowRect &bounds)
{
    displays.append({.id = id,
                     .name = u"Display %1"_qs.arg(id),
                     .bounds = bounds,
                     .usableFrame = bounds,
                     .isMain = displays.isEmpty()});
}

Desktop InMemoryDesktop::makeDesktop()
{
    return {.session = "memory",
            .roles = {.ownID = "org.ardeno.Ardeno"},
            .workspace = std::make_unique<InMemoryWorkspace>(*this),
            .windowServer = std::make_unique<InMemoryWindowServer>(*this),
            .screenCapture = std::make_unique<InMemoryScreenCapture>(*this),
            .screenAccess = std::make_unique<InMemoryScreenAccess>(*this),
            .tabSource = std::make_unique<InMemoryTabSource>(*this),
            .fileBrowser = std::make_unique<InMemoryFileBrowser>(*this),
            .documents = std::make_unique<InMemoryDocuments>(*this),
            .mailProgram = std::make_unique<InMemoryMailProgram>(*this)};
}

} // namespace ardeno::fakes
