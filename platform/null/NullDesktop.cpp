// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/null/NullDesktop.h"

#include "platform/null/NullHotKeys.h"
#include "platform/null/NullLauncher.h"
#include "platform/null/NullTabSource.h"
#include "platform/null/NullWindowMover.h"

#include <utility>

namespace ardeno {

namespace {

// No applications.
class NullWorkspace final : public Workspace {
public:
    explicit NullWorkspace(QString reason) : m_reason(std::move(reason)) {}

    Capability availability() const override { return Capability::unavailable(m_reason); }

    QList<RunningApplication> runningApplications() override { return {}; }

    QList<InstalledApplication> installedApplications() override { return {}; }

    std::optional<InstalledApplication> findApplication(const QString &) override { return std::nullopt; }

    bool isProgramRunning(const QString &) override { return false; }

    std::optional<ApplicationMarks> marks(const QString &) override { return std::nullopt; }

    void setExcluded(const QSet<QString> &, const QList<ApplicationMarks> &) override {}

    void setChangeHandler(std::function<void()>) override {}

private:
    QString m_reason;
};

// No windows and no displays.
class NullWindowServer final : public WindowServer {
public:
    explicit NullWindowServer(QString reason) : m_reason(std::move(reason)) {}

    Capability availability() const override { return Capability::unavailable(m_reason); }

    QList<Display> displays() override { return {}; }

    QList<WindowInfo> allWindows() override { return {}; }

private:
    QString m_reason;
};

// No pictures.
class NullScreenCapture final : public ScreenCapture {
public:
    explicit NullScreenCapture(QString reason) : m_reason(std::move(reason)) {}

    Capability availability() const override { return Capability::unavailable(m_reason); }

    Capability exclusionAvailability() const override { return availability(); }

    QList<CaptureDisplay> displays() override { throw notAvailable(m_reason); }

    void prepareExclusion(const QSet<QString> &) override {}

    QCoro::Task<Canvas> compose(CanvasRequest) override
    {
        throw notAvailable(m_reason);
        co_return {};
    }

private:
    QString m_reason;
};

// No videos.
class NullScreenRecorder final : public ScreenRecorder {
public:
    explicit NullScreenRecorder(QString reason) : m_reason(std::move(reason)) {}

    Capability availability() const override { return Capability::unavailable(m_reason); }

    RecordableContent content() override { throw notAvailable(m_reason); }

    QCoro::Task<std::unique_ptr<RecordingStream>> start(RecordingRequest, RecordingEvents) override
    {
        throw notAvailable(m_reason);
        co_return std::unique_ptr<RecordingStream>();
    }

private:
    QString m_reason;
};

// Nobody to consent.
class NullScreenAccess final : public ScreenAccess {
public:
    explicit NullScreenAccess(QString reason) : m_reason(std::move(reason)) {}

    Capability availability() const override { return Capability::unavailable(m_reason); }

    bool ask() override { return false; }

    bool openSettings() override { return false; }

private:
    QString m_reason;
};

// No folders.
class NullFileBrowser final : public FileBrowser {
public:
    explicit NullFileBrowser(QString reason) : m_reason(std::move(reason)) {}

    Capability availability() const override { return Capability::unavailable(m_reason); }

    QCoro::Task<QList<WindowLocation>> locations() override { co_return {}; }

private:
    QString m_reason;
};

// No documents.
class NullDocuments final : public Documents {
public:
    explicit NullDocuments(QString reason) : m_reason(std::move(reason)) {}

    Capability availability() const override { return Capability::unavailable(m_reason); }

    QCoro::Task<QList<WindowLocation>> locations(QSet<qint64>) override { co_return {}; }

    QCoro::Task<QList<WindowLocation>> locationsOf(QString) override { co_return {}; }

    QCoro::Task<QStringList> held(QString, QStringList) override { co_return {}; }

private:
    QString m_reason;
};

// Nothing is opened, so nothing is looked at.
class NullFiles final : public Files {
public:
    QCoro::Task<QHash<QString, PathFacts>> facts(QStringList) override { co_return {}; }
};

// No mail program.
class NullMailProgram final : public MailProgram {
public:
    bool openDraft(const QUrl &) override { return false; }
};

// No dialogs.
class NullFileDialogs final : public FileDialogs {
public:
    std::unique_ptr<Asking> ask(const Question &, Answered answered) override
    {
        answered(Answer::NoDialog, {});
        return {};
    }
};

} // namespace

std::unique_ptr<ScreenCapture> makeNullScreenCapture(const QString &reason)
{
    return std::make_unique<NullScreenCapture>(reason);
}

Desktop makeNullDesktop(const QString &session, const QString &reason, const DesktopRoles &roles)
{
    Desktop desktop;
    desktop.session = session;
    desktop.roles = roles;
    desktop.workspace = std::make_unique<NullWorkspace>(reason);
    desktop.windowServer = std::make_unique<NullWindowServer>(reason);
    desktop.screenCapture = makeNullScreenCapture(reason);
    desktop.screenRecorder = std::make_unique<NullScreenRecorder>(reason);
    desktop.screenAccess = std::make_unique<NullScreenAccess>(reason);
    desktop.tabSource = std::make_unique<NullTabSource>(reason);
    desktop.windowMover = std::make_unique<NullWindowMover>(reason);
    desktop.launcher = std::make_unique<NullLauncher>(reason);
    desktop.fileBrowser = std::make_unique<NullFileBrowser>(reason);
    desktop.documents = std::make_unique<NullDocuments>(reason);
    desktop.files = std::make_unique<NullFiles>();
    desktop.mailProgram = std::make_unique<NullMailProgram>();
    desktop.hotKeys = std::make_unique<NullHotKeys>(reason);
    desktop.ownWindows = std::make_unique<NullOwnWindows>();
    desktop.fileDialogs = std::make_unique<NullFileDialogs>();
    return desktop;
}

} // namespace ardeno
