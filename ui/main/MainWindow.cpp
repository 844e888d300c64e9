// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/MainWindow.h"

#include "store/AppStore.h"
#include "ui/ViewParts.h"
#include "ui/checkpoint/CheckpointDetail.h"
#include "ui/checkpoint/UnsavedNoteQuestion.h"
#include "ui/controls/FadeIn.h"
#include "ui/controls/InputWatch.h"
#include "ui/controls/Label.h"
#include "ui/controls/Menu.h"
#include "ui/controls/Surfaces.h"
#include "ui/controls/TextKeys.h"
#include "ui/main/ArchivingBanner.h"
#include "ui/main/Banners.h"
#include "ui/main/DetailBar.h"
#include "ui/main/LastUndo.h"
#include "ui/main/Presentations.h"
#include "ui/main/RemarkBanners.h"
#include "ui/main/ResumeBanner.h"
#include "ui/main/Sidebar.h"
#include "ui/projects/CheckpointActions.h"
#include "ui/projects/ProjectActions.h"
#include "ui/projects/ProjectStatusView.h"
#include "ui/projects/ProjectTimeline.h"
#include "ui/projects/ProjectsOverview.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

namespace ardeno {

// What the window does by a shortcut, and its menu by name.
struct MainWindow::Actions {
    QAction *newProject = nullptr;
    QAction *save = nullptr;
    QAction *search = nullptr;
    QAction *next = nullptr;
    QAction *previous = nullptr;
    QAction *undo = nullptr;
    QAction *remove = nullptr;
    QAction *settings = nullptr;
    QAction *fullScreen = nullptr;
};

MainWindow::MainWindow() : m_brand(Sidebar::makeBrand())
{
    setWindowTitle(tr("Ardeno"));
    setWindowIcon(Symbols::brandIcon());
    setMinimumSize(960, 690);
    resize(1170, 790);
    setLeastContent(QSize(940, 540));
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_brand->setParent(content());
    m_brand->setGeometry(12, 16, Sidebar::fixedWidth - 25, m_brand->sizeHint().height());
    AppTheme::instance().follow(this);
    InputWatch::instance(); // From now on.
    openMenusByKey(this);
}

MainWindow::~MainWindow()
{
    // What was typed is kept while the store and the messages are still there.
    m_subscriptions.reset();
    delete m_view;
    m_noteQuestion.reset();
    m_presentations.reset();
}

void MainWindow::open(AppStore &store, Screens screens)
{
    m_store = &store;
    m_screens = std::move(screens);
    delete m_brand;
    m_sidebar = new Sidebar(ViewParts::ofProjects(store), m_screens);
    m_sidebar->setFixedWidth(Sidebar::fixedWidth);
    auto *row = makeRow(0, content());
    row->addWidget(m_sidebar);
    row->addWidget(makeDetailColumn(), 1);
    m_presentations = std::make_unique<Presentations>(ViewParts::ofProjects(store), store.messages, store.deletion,
                                                      m_screens, sheets());
    m_noteQuestion = std::make_unique<UnsavedNoteQuestion>(store.library, store.navigation, store.editing, sheets());
    m_lastUndo = std::make_unique<LastUndo>(store.projects, store.removals, store.navigation);
    makeActions();
    sheets().setOnCover([this](bool) { enableActions(); });
    m_subscriptions = std::make_unique<Subscriptions>();
    m_subscriptions->watch([this] { showContent(); }, store.navigation.selectedProjectID, store.navigation.selection,
                           store.library.projects, store.library.checkpoints);
    m_subscriptions->watch([this] { enableActions(); }, store.operations.busy, store.recorder.recording,
                           store.removals.lastRemoval, store.projects.lastArchiving);
    if (m_screens.reopenKept)
        m_screens.reopenKept(sheets());
    store.applications.watchRunningApplications();
}

QWidget *MainWindow::makeDetailColumn()
{
    auto *detail = new QWidget;
    auto *column = makeColumn(0, detail);
    auto *bar = new Surface(Role::Paper, Qt::BottomEdge);
    const auto stop = [this] {
        if (m_screens.stopRecording)
            m_screens.stopRecording();
        else
            m_store->sessions.stop();
    };
    makeColumn(0, bar)->addWidget(new DetailBar(m_store->library, m_store->navigation, m_store->operations,
                                                m_store->recorder, stop, [this](QMenu *menu) { fillMenu(menu); }));
    column->addWidget(bar);
    column->addWidget(new UpdateBanner(m_store->updates, m_screens));
    m_projectHead = makeProjectHead();
    column->addWidget(m_projectHead);
    m_contentColumn = makeColumn(0);
    column->addLayout(m_contentColumn, 1);
    m_foot = new QWidget;
    auto *foot = makeColumn(0, m_foot);
    foot->addWidget(new RemarkBanners(m_store->messages, m_store->applications, m_store->sessions));
    foot->addWidget(new ResumeBanner(m_store->resumes, m_store->library));
    foot->addWidget(new ArchivingBanner(m_store->projects, m_store->library));
    foot->addWidget(
        new NoticeBanner(m_store->messages, m_store->navigation, m_store->library, m_store->resumes, [this] {
            if (m_detail)
                m_detail->showShortfall();
        }));
    // Lowest, where it stays when a notice above it goes.
    foot->addWidget(new NewsletterPrompt(m_store->newsletter, m_screens));
    column->addWidget(m_foot);
    return detail;
}

QWidget *MainWindow::makeProjectHead()
{
    auto *head = new QWidget;
    auto *column = makeColumn(0, head);
    auto *status = new Surface(Role::Paper, Qt::BottomEdge);
    makeColumn(0, status)->addWidget(new ProjectStatusView(ViewParts::ofProjects(*m_store)));
    column->addWidget(status);
    m_timelineArea = new Surface(Role::Paper, Qt::BottomEdge);
    m_timeline = new ProjectTimeline(ViewParts::ofCheckpointLists(*m_store), m_store->operations, m_store->recorder,
                                     [this] { requestSave(); });
    makeColumn(0, m_timelineArea)->addWidget(m_timeline);
    column->addWidget(m_timelineArea);
    return head;
}

QWidget *MainWindow::makeEmptyProject()
{
    auto *empty = new QWidget;
    auto *column = makeColumn(0, empty);
    column->addStretch();
    column->addWidget(new SymbolView("folder", Role::Faint, 44), 0, Qt::AlignHCenter);
    column->addSpacing(14);
    column->addWidget(makeLabel(tr("Your project is ready"), TextStyle::Heading), 0, Qt::AlignHCenter);
    column->addSpacing(10);
    QLabel *const text =
        makeParagraph(tr("Save your first checkpoint to keep the screenshot, workspace and next step together."),
                      TextStyle::Body, Role::Dim);
    text->setAlignment(Qt::AlignHCenter);
    text->setFixedWidth(340);
    auto *middle = makeRow(0); // Aligned by stretches, as only they let a text have several lines.
    middle->addStretch();
    middle->addWidget(text);
    middle->addStretch();
    column->addLayout(middle);
    column->addSpacing(12);
    auto *save = new Button(tr("Save first checkpoint"), Button::Kind::Prominent);
    save->setLarge();
    save->setHint(tr("Capture this workspace"), "Ctrl+S");
    QObject::connect(save, &QAbstractButton::clicked, m_actions->save, &QAction::trigger);
    column->addWidget(save, 0, Qt::AlignHCenter);
    column->addStretch();
    empty->setFocusProxy(save);
    return empty;
}

QWidget *MainWindow::makeContent()
{
    m_detail = nullptr;
    if (!m_store->navigation.selectedProject())
        return new ProjectsOverview(ViewParts::ofProjects(*m_store), m_store->media);
    const Checkpoint *const checkpoint = m_store->navigation.selected();
    if (!checkpoint)
        return makeEmptyProject();
    m_detail = new CheckpointDetail(ViewParts::ofCheckpoint(*m_store), m_screens, *checkpoint);
    return m_detail;
}

void MainWindow::showContent()
{
    const Project *const project = m_store->navigation.selectedProject();
    const Checkpoint *const checkpoint = m_store->navigation.selected();
    const auto wanted = std::pair(project ? std::optional(project->id) : std::nullopt,
                                  checkpoint ? std::optional(checkpoint->id) : std::nullopt);
    enableActions();
    QWidget *const before = m_view;
    const QWidget *const focused = window()->focusWidget();
    const bool hadFocus =
        (before && before->isAncestorOf(focused)) || (!checkpoint && m_timelineArea->isAncestorOf(focused));
    m_projectHead->setVisible(project);
    m_timelineArea->setVisible(checkpoint);
    if (m_shown == wanted)
        return;
    m_shown = wanted;
    m_view = makeContent();
    m_contentColumn->addWidget(m_view);
    if (before)
        FadeIn::begin(m_view, Role::Paper);
    delete before;
    // The tab key goes from top to bottom, though the content is younger than what stands below it.
    for (QAbstractButton *const control : m_foot->findChildren<QAbstractButton *>())
        QWidget::setTabOrder(previousInFocusChain(), control);
    if (hadFocus && !sheets().isCovering())
        m_view->setFocus(Qt::OtherFocusReason);
}

void MainWindow::makeActions()
{
    const auto add = [this](const QString &text, const QKeySequence &keys, const QString &symbol,
                            std::function<void()> run) {
        auto *action = new QAction(Symbols::icon(symbol), text, this);
        action->setShortcut(keys);
        action->setShortcutVisibleInContextMenu(true);
        QObject::connect(action, &QAction::triggered, this, std::move(run));
        addAction(action);
        return action;
    };
    m_actions = std::make_unique<Actions>();
    m_actions->newProject = add(tr("New project"), Qt::CTRL | Qt::Key_N, "plus",
                                [this] { m_store->sheets.open(&OpenSheets::showNewProject); });
    m_actions->save = add(tr("Save checkpoint"), Qt::CTRL | Qt::Key_S, "plus.circle.fill", [this] { requestSave(); });
    m_actions->search =
        add(tr("Find a project"), Qt::CTRL | Qt::Key_F, "magnifyingglass", [this] { m_sidebar->focusSearch(); });
    m_actions->next = add(tr("Next checkpoint"), Qt::CTRL | Qt::Key_PageDown, "arrow.right",
                          [this] { m_timeline->selectNeighbour(1); });
    m_actions->previous = add(tr("Previous checkpoint"), Qt::CTRL | Qt::Key_PageUp, "arrow.left",
                              [this] { m_timeline->selectNeighbour(-1); });
    m_actions->undo = add(tr("Undo"), Qt::CTRL | Qt::Key_Z, "arrow.uturn.backward", [this] { m_lastUndo->undo(); });
    m_actions->undo->setAutoRepeat(false); // A key that is held takes back one thing.
    m_actions->remove =
        add(tr("Delete checkpoint…"), Qt::CTRL | Qt::Key_Delete, "trash", [this] { m_presentations->confirmDelete(); });
    m_actions->settings = add(tr("Settings"), Qt::CTRL | Qt::Key_Comma, "slider.horizontal.3",
                              [this] { m_store->sheets.open(&OpenSheets::showSettings); });
    m_actions->fullScreen = add(tr("Full screen"), Qt::Key_F11, "arrow.up.left.and.arrow.down.right",
                                [this] { setWindowState(windowState() ^ Qt::WindowFullScreen); });
}

void MainWindow::requestSave()
{
    CheckpointActions::requestSave(ViewParts::ofCapture(*m_store), m_store->navigation,
                                   static_cast<bool>(m_screens.capture));
}

void MainWindow::enableActions()
{
    if (!m_actions)
        return;
    const bool isReachable = !sheets().isCovering();
    const bool hasCheckpoint = m_store->navigation.selected() != nullptr;
    const bool isIdle = !m_store->operations.busy() && !m_store->recorder.recording();
    m_actions->newProject->setEnabled(isReachable);
    m_actions->search->setEnabled(isReachable);
    m_actions->save->setEnabled(isReachable && isIdle && m_store->navigation.selectedProject());
    m_actions->next->setEnabled(isReachable && hasCheckpoint);
    m_actions->previous->setEnabled(isReachable && hasCheckpoint);
    m_actions->undo->setEnabled(isReachable && m_lastUndo->isPossible());
    m_actions->remove->setEnabled(isReachable && hasCheckpoint && !m_store->navigation.selected()->isSample);
    m_actions->settings->setVisible(static_cast<bool>(m_screens.preferences));
    m_actions->settings->setEnabled(isReachable);
}

void MainWindow::fillMenu(QMenu *menu)
{
    for (QAction *const action : {m_actions->newProject, m_actions->save, m_actions->search})
        menu->addAction(action);
    menu->addSeparator();
    menu->addAction(m_actions->next);
    menu->addAction(m_actions->previous);
    menu->addSeparator();
    menu->addAction(m_actions->undo);
    menu->addAction(m_actions->remove);
    menu->addSeparator();
    menu->addAction(m_actions->fullScreen);
    menu->addAction(m_actions->settings);
    menu->addActions(m_applicationActions);
}

void MainWindow::addMenuActions(const QList<QAction *> &actions)
{
    m_applicationActions += actions;
    addActions(actions);
}

bool MainWindow::event(QEvent *event)
{
    const QWidget *const focused = QApplication::focusWidget();
    const bool isShortcut = event->type() == QEvent::ShortcutOverride && TextKeys::isField(focused);
    if (isShortcut && TextKeys::isEditing(*static_cast<QKeyEvent *>(event)) && !TextKeys::isLeft(*event, focused)) {
        event->accept();
        return true;
    }
    return CoverableWindow::event(event);
}

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    const bool isRename = event->key() == Qt::Key_F2 && m_store && m_store->navigation.selectedProjectID();
    if (isRename && !TextKeys::isField(QApplication::focusWidget()))
        ProjectActions::rename(this, ViewParts::ofProjects(*m_store), *m_store->navigation.selectedProjectID());
    else
        CoverableWindow::keyPressEvent(event);
}

void MainWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(Role::Paper));
    const QRectF side(content()->x(), 0, Sidebar::fixedWidth, height());
    painter.fillRect(side, themeColor(Role::Sidebar));
    Drawing::edge(painter, side, Qt::RightEdge, themeColor(Role::Line));
    if (const auto painted = std::exchange(m_firstPaint, nullptr))
        QTimer::singleShot(0, this, painted);
}

bool MainWindow::hasUnsavedNotes()
{
    if (!m_store)
        return false;
    if (m_detail)
        m_detail->commitNotes();
    m_store->editing.saveUnsavedNotes();
    return !m_store->editing.unsavedNotes().isEmpty();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (m_detail)
        m_detail->commitNotes();
    event->setAccepted(!m_mayClose || m_mayClose());
}

} // namespace ardeno
