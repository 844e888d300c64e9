// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Observable.h"
#include "ui/Screens.h"
#include "ui/controls/Sheet.h"

#include <QActionGroup>
#include <QPointer>

#include <memory>

class QMenu;

namespace ardeno {

class AppStore;
class CheckpointDetail;
class LastUndo;
class Presentations;
class ProjectTimeline;
class Sidebar;
class UnsavedNoteQuestion;

// The application's window: projects at the left, what is selected of them at the right. It can be shown before the
// library is read: it then has its grounds and the brand alone.
class MainWindow final : public CoverableWindow {
    Q_DECLARE_TR_FUNCTIONS(ardeno::MainWindow)

public:
    MainWindow();
    ~MainWindow() override;
    MainWindow(const MainWindow &) = delete;
    MainWindow &operator=(const MainWindow &) = delete;

    // Composes the views; the store, which the screens are of, outlives the window.
    void open(AppStore &store, Screens screens = {});

    // Called once, from the event loop, after the first picture of the window.
    void setOnFirstPaint(std::function<void()> painted) { m_firstPaint = std::move(painted); }

    // Entries at the end of the window's menu, with their shortcuts; owned by the caller, who outlives the window.
    void addMenuActions(const QList<QAction *> &actions);

    // Asked when the user closes the window; it stays open when the answer is false.
    void setOnClose(std::function<bool()> mayClose) { m_mayClose = std::move(mayClose); }

    // Whether a note cannot be written, though it was tried again right now.
    bool hasUnsavedNotes();

    bool isOpen() const { return m_store != nullptr; }

protected:
    // Keys of the text that is being written are no shortcuts.
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    struct Actions;

    QWidget *makeDetailColumn();
    QWidget *makeProjectHead();
    QWidget *makeEmptyProject();
    void makeActions();
    void fillMenu(QMenu *menu);
    void showContent();
    QWidget *makeContent();
    void requestSave();
    void enableActions();

    Screens m_screens;
    AppStore *m_store = nullptr;
    QPointer<QWidget> m_brand;
    Sidebar *m_sidebar = nullptr;
    QWidget *m_projectHead = nullptr;
    QWidget *m_timelineArea = nullptr;
    ProjectTimeline *m_timeline = nullptr;
    QVBoxLayout *m_contentColumn = nullptr;
    QWidget *m_foot = nullptr;
    QPointer<QWidget> m_view;
    QPointer<CheckpointDetail> m_detail;
    std::optional<std::pair<std::optional<QUuid>, std::optional<QUuid>>> m_shown; // Project and checkpoint.
    std::unique_ptr<Actions> m_actions;
    std::unique_ptr<LastUndo> m_lastUndo;
    std::unique_ptr<Presentations> m_presentations;
    std::unique_ptr<UnsavedNoteQuestion> m_noteQuestion;
    QList<QAction *> m_applicationActions;
    std::function<bool()> m_mayClose;
    std::function<void()> m_firstPaint;
    std::unique_ptr<Subscriptions> m_subscriptions;
};

} // namespace ardeno
