// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fakes/InMemoryParts.h"

#include <algorithm>
#include <utility>

namespace ardeno::fakes {

namespace {

class InMemoryWindowMover final : public InMemory<WindowMover> {
public:
    using InMemory::InMemory;

    Capability availability() const override { return m_desktop.moving; }

    void ask() override { m_desktop.moving = Capability::available(); }

    QList<MovableWindow> windows() override { return m_desktop.movable; }

    UserInput input() override { return m_desktop.input; }

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
                carryOut(move, &window);
        }
        return result;
    }

    static void carryOut(const WindowMove &move, MovableWindow *window)
    {
        window->frame = move.frame;
        if (move.desktop)
            window->desktop = move.desktop;
        if (move.states)
            window->states = move.states;
    }
};

class InMemoryLauncher final : public Available<Launcher> {
public:
    using Available::Available;

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

    QCoro::Task<void> openPages(QString appID, QStringList addresses, PagePlace place) override
    {
        return open(appID, QStringList{place == PagePlace::NewWindow ? "new" : "page", appID} + addresses);
    }

    QCoro::Task<SavedBrowserWindow> findSavedWindow(SavedTab tab, QList<SavedTab> saved) override
    {
        m_desktop.savedPagesTold = saved.size();
        const SavedBrowserWindow found = m_desktop.savedWindows.value(tab.window);
        co_return found;
    }

    QCoro::Task<bool> openInSavedWindow(quint32 windowID, QList<TabToReopen> tabs) override
    {
        QStringList words{"window", QString::number(windowID)};
        for (const TabToReopen &tab : tabs)
            words += tab.address;
        note(words);
        co_return true;
    }

    bool isStarting(const QString &appID) const override { return m_desktop.starting.contains(appID); }

    QCoro::Task<QList<FailedStart>> settle() override { co_return std::exchange(m_desktop.failedStarts, {}); }

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
};

class InMemoryMailProgram final : public InMemory<MailProgram> {
public:
    using InMemory::InMemory;

    bool openDraft(const QUrl &address) override
    {
        if (m_desktop.hasMailProgram)
            m_desktop.mailDrafts.append(address);
        return m_desktop.hasMailProgram;
    }
};

class InMemoryHotKeys final : public Available<HotKeys> {
public:
    using Available::Available;

    void listen(Combination keys, Listener listener) override
    {
        release();
        if (m_desktop.areKeysTaken)
            throw Failure("HotKeys", 1, "Another program has these keys.");
        m_desktop.keys = keys;
        m_desktop.keyListener = std::move(listener);
    }

    void release() override { m_desktop.keys.reset(); }
};

class InMemoryOwnWindows final : public InMemory<OwnWindows> {
public:
    using InMemory::InMemory;

    void bringToFront(quint64) override { m_desktop.focusRequests << "front"; }

    void floatAbove(quint64) override { m_desktop.focusRequests << "above"; }

    void rememberFocus() override { m_desktop.focusRequests << "remember"; }

    void returnFocus(quint64) override { m_desktop.focusRequests << "return"; }
};

// The program's own dialog stands in for it.
class NoFileDialogs final : public FileDialogs {
public:
    std::unique_ptr<Asking> ask(const Question &, Answered answered) override
    {
        answered(Answer::NoDialog, {});
        return {};
    }
};

} // namespace

void addActions(InMemoryDesktop &memory, Desktop *desktop)
{
    desktop->windowMover = std::make_unique<InMemoryWindowMover>(memory);
    desktop->launcher = std::make_unique<InMemoryLauncher>(memory);
    desktop->mailProgram = std::make_unique<InMemoryMailProgram>(memory);
    desktop->hotKeys = std::make_unique<InMemoryHotKeys>(memory);
    desktop->ownWindows = std::make_unique<InMemoryOwnWindows>(memory);
    desktop->fileDialogs = std::make_unique<NoFileDialogs>();
}

} // namespace ardeno::fakes
