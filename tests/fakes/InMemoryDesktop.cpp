// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fakes/InMemoryDesktop.h"

#include <QCoroTimer>
#include <QFile>

#include <algorithm>
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

class InMemoryStream final : public RecordingStream {
public:
    explicit InMemoryStream(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    ~InMemoryStream() override { m_desktop.recordingEvents = {}; }

    QCoro::Task<void> stop() override
    {
        if (m_desktop.whenStopped)
            m_desktop.whenStopped();
        else if (m_desktop.recordingEvents.finished)
            m_desktop.recordingEvents.finished();
        co_return;
    }

private:
    InMemoryDesktop &m_desktop;
};

class InMemoryScreenRecorder final : public ScreenRecorder {
public:
    explicit InMemoryScreenRecorder(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    Capability availability() const override { return m_desktop.recorder; }

    RecordableContent content() override
    {
        RecordableContent content;
        for (const Display &display : m_desktop.displays) {
            content.displays.append({display.id, display.bounds});
            if (display.isMain)
                content.mainDisplayID = display.id;
        }
        for (const RunningApplication &application : m_desktop.running)
            content.applicationIDs.append(application.id);
        return content;
    }

    QCoro::Task<std::unique_ptr<RecordingStream>> start(RecordingRequest request, RecordingEvents events) override
    {
        m_desktop.recordings.append(request);
        co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        if (m_desktop.recordingFailure)
            throw Failure(*m_desktop.recordingFailure);
        QFile file(request.path);
        if (file.open(QIODevice::WriteOnly))
            file.write("video");
        m_desktop.recordingEvents = std::move(events);
        co_return std::make_unique<InMemoryStream>(m_desktop);
    }

private:
    InMemoryDesktop &m_desktop;
};

class InMemoryScreenAccess final : public ScreenAccess {
public:
    explicit InMemoryScreenAccess(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    Capability availability() const override
    {
        if (m_desktop.screenAccess)
            return Capability::available();
        if (m_desktop.noScreenAccess)
            return Capability::unavailable(*m_desktop.noScreenAccess);
        return {Capability::State::NeedsConsent, {}};
    }

    bool ask() override
    {
        ++m_desktop.timesAsked;
        m_desktop.screenAccess = m_desktop.screenAccess || m_desktop.consentOnAsking;
        return m_desktop.screenAccess;
    }

    bool openSettings() override
    {
        ++m_desktop.timesSettingsOpened;
        return true;
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

    QCoro::Task<std::optional<QSet<quint32>>> ordinaryWindows(QString appID) override
    {
        const auto found = m_desktop.ordinaryWindows.constFind(appID);
        if (found == m_desktop.ordinaryWindows.cend())
            co_return std::nullopt;
        co_return *found;
    }

private:
    InMemoryDesktop &m_desktop;
};

class InMemoryWindowMover final : public WindowMover {
public:
    explicit InMemoryWindowMover(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    Capability availability() const override { return m_desktop.moving; }

    void ask() override { m_desktop.moving = Capability::available(); }

    QList<MovableWindow> windows() override { return m_desktop.movable; }

    QCoro::Task<QList<MoveResult>> move(QList<WindowMove> moves) override
    {
        QList<MoveResult> results;
        for (const WindowMove &move : moves)
            results.append(moved(move));
        co_return results;
    }

private:
    MoveResult moved(const WindowMove &move)
    {
        const MoveResult result = m_desktop.moveResults.value(move.windowID, MoveResult::Placed);
        m_desktop.moves.append(move);
        for (MovableWindow &window : m_desktop.movable) {
            if (window.windowID == move.windowID && result == MoveResult::Placed)
                window.frame = move.frame;
        }
        return result;
    }

    InMemoryDesktop &m_desktop;
};

class InMemoryLauncher final : public Launcher {
public:
    explicit InMemoryLauncher(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    Capability availability() const override { return Capability::available(); }

    bool isInstalled(const QString &appID) override
    {
        return std::any_of(m_desktop.installed.begin(), m_desktop.installed.end(),
                           [&](const InstalledApplication &application) { return application.id == appID; });
    }

    QCoro::Task<void> openApplication(QString appID, QStringList paths) override
    {
        return open(appID, QStringList{"app", appID} + paths);
    }

    QCoro::Task<void> openPath(QString path) override { return open({}, QStringList{"path", path}); }

    QCoro::Task<void> reveal(QString path) override { return open({}, QStringList{"reveal", path}); }

    QCoro::Task<void> openPages(QString appID, QStringList addresses) override
    {
        return open(appID, QStringList{"page", appID} + addresses);
    }

    QCoro::Task<bool> openInSavedWindow(QList<TabToReopen> tabs) override
    {
        const QString window = tabs.first().tab.browserWindowID.value_or(QString());
        if (!m_desktop.certainWindowIDs.contains(window))
            co_return false;
        QStringList words{"window", window};
        for (const TabToReopen &tab : tabs)
            words += tab.address;
        note(words);
        co_return true;
    }

    QCoro::Task<QStringList> settle() override { co_return std::exchange(m_desktop.endedWithError, {}); }

private:
    QCoro::Task<void> open(QString appID, QStringList words)
    {
        if (m_desktop.openFailures.contains(appID))
            throw Failure("Launch", 1, m_desktop.openFailures.value(appID));
        note(words);
        co_return;
    }

    void note(const QStringList &words)
    {
        m_desktop.opened.append(words.join(' '));
        if (m_desktop.whenOpened)
            m_desktop.whenOpened(m_desktop.opened.last());
    }

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

class InMemoryHotKeys final : public HotKeys {
public:
    explicit InMemoryHotKeys(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    Capability availability() const override { return Capability::available(); }

    void listen(Combination keys, Listener listener) override
    {
        release();
        if (m_desktop.areKeysTaken)
            throw Failure("HotKeys", 1, "Another program has these keys.");
        m_desktop.keys = keys;
        m_desktop.keyListener = std::move(listener);
    }

    void release() override { m_desktop.keys.reset(); }

private:
    InMemoryDesktop &m_desktop;
};

class InMemoryOwnWindows final : public OwnWindows {
public:
    explicit InMemoryOwnWindows(InMemoryDesktop &desktop) : m_desktop(desktop) {}

    void bringToFront(quint64) override { m_desktop.focusRequests << "front"; }

    void floatAbove(quint64) override { m_desktop.focusRequests << "above"; }

    void rememberFocus() override { m_desktop.focusRequests << "remember"; }

    void returnFocus(quint64) override { m_desktop.focusRequests << "return"; }

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
            .screenRecorder = std::make_unique<InMemoryScreenRecorder>(*this),
            .screenAccess = std::make_unique<InMemoryScreenAccess>(*this),
            .tabSource = std::make_unique<InMemoryTabSource>(*this),
            .windowMover = std::make_unique<InMemoryWindowMover>(*this),
            .launcher = std::make_unique<InMemoryLauncher>(*this),
            .fileBrowser = std::make_unique<InMemoryFileBrowser>(*this),
            .documents = std::make_unique<InMemoryDocuments>(*this),
            .mailProgram = std::make_unique<InMemoryMailProgram>(*this),
            .hotKeys = std::make_unique<InMemoryHotKeys>(*this),
            .ownWindows = std::make_unique<InMemoryOwnWindows>(*this)};
}

} // namespace ardeno::fakes
