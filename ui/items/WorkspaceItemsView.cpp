// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/items/WorkspaceItemsView.h"

#include "ui/controls/Label.h"
#include "ui/controls/Menu.h"
#include "ui/controls/Surfaces.h"
#include "ui/controls/UndoBanner.h"
#include "ui/items/ItemList.h"
#include "ui/items/ItemText.h"
#include "ui/items/WindowLayoutSummary.h"

#include <algorithm>
#include <variant>

namespace ardeno {

namespace {

QString appTitle(const SavedApp &app)
{
    const QString name = ItemText::line(app.name);
    return name.isEmpty() ? app.id : name;
}

QString tabTitle(const SavedTab &tab)
{
    const QString title = ItemText::line(tab.title);
    return title.isEmpty() ? QCoreApplication::translate("ardeno::WorkspaceItemsView", "Untitled tab") : title;
}

QString removedName(const RemovedWorkspaceItem &removed)
{
    if (const auto *const app = std::get_if<SavedApp>(&removed.item))
        return appTitle(*app);
    const auto *const tab = std::get_if<SavedTab>(&removed.item);
    return tab ? tabTitle(*tab) : QString(); // The others have strips of their own.
}

QWidget *makeEmptyCard(const QString &text, const QString &more = {})
{
    auto *card = new Card;
    auto *column = makeColumn(3, card);
    column->setContentsMargins(14, 12, 14, 12);
    column->addWidget(makeParagraph(text, TextStyle::Body, more.isEmpty() ? Role::Dim : Role::Text));
    if (!more.isEmpty())
        column->addWidget(makeParagraph(more, TextStyle::Small, Role::Dim));
    return card;
}

// In menus an ampersand marks a letter.
QString menuText(QString text)
{
    return text.replace('&', "&&");
}

// A list on its card; the card's line stays seen.
QWidget *makeListCard(QWidget *card, ItemList *list)
{
    auto *column = makeColumn(0, card);
    column->setContentsMargins(1, 1, 1, 1);
    column->addWidget(list);
    return card;
}

} // namespace

WorkspaceItemsView::WorkspaceItemsView(const ItemParts &parts, const QUuid &checkpointID)
    : m_parts(parts),
      m_id(checkpointID),
      m_isSample(!parts.library.checkpoint(checkpointID)),
      m_icons(parts.applications)
{
    auto *column = makeColumn(12, this);
    column->setContentsMargins(0, 16, 0, 0);
    column->addWidget(makeHead());
    m_undo = new UndoBanner([this] { m_parts.removals.undoWorkspaceRemoval(); });
    column->addWidget(m_undo);
    column->addWidget(makeLists());
    if (const Checkpoint *const checkpoint = current()) {
        m_windows = new WindowLayoutSummary(parts.workspace, parts.removals, m_icons, *checkpoint);
        column->addWidget(m_windows);
    }
    m_subscriptions.watch([this] { showCheckpoint(); }, parts.library.checkpoints);
    m_subscriptions.watch([this] { showUndo(); }, parts.removals.lastRemoval, parts.library.checkpoints);
    if (m_addTabs)
        m_subscriptions.watch([this] { m_addTabs->setEnabled(!m_parts.operations.busy()); }, parts.operations.busy);
}

const Checkpoint *WorkspaceItemsView::current() const
{
    if (!m_isSample)
        return m_parts.library.checkpoint(m_id);
    const QList<Checkpoint> &samples = m_parts.library.sampleHistory();
    const auto found = std::find_if(samples.begin(), samples.end(),
                                    [this](const Checkpoint &checkpoint) { return checkpoint.id == m_id; });
    return found == samples.end() ? nullptr : &*found;
}

QWidget *WorkspaceItemsView::makeHead()
{
    auto *head = new QWidget;
    auto *column = makeColumn(2, head);
    column->addWidget(makeLabel(tr("Saved workspace"), TextStyle::BarTitle));
    column->addWidget(makeParagraph(tr("Remove items from this checkpoint, or right-click to exclude them from future "
                                       "captures. Apps and tabs stay open."),
                                    TextStyle::Small, Role::Dim));
    return head;
}

QWidget *WorkspaceItemsView::makeLists()
{
    auto *lists = new QWidget;
    auto *row = makeRow(14, lists);
    row->addWidget(makeApps(), 2, Qt::AlignTop);
    row->addWidget(makeTabs(), 3, Qt::AlignTop);
    return lists;
}

QWidget *WorkspaceItemsView::makeApps()
{
    auto *section = new QWidget;
    auto *column = makeColumn(8, section);
    auto *head = makeRow(0);
    head->addWidget(makeLabel(tr("Apps"), TextStyle::Strong));
    head->addStrut(30); // As tall as that of the tabs, which has a button.
    column->addLayout(head);
    m_appCard = new Card;
    const auto removal = m_isSample ? ItemDelegate::Removal::None : ItemDelegate::Removal::Button;
    m_apps = new ItemList(tr("Apps"), m_appModel, new ItemDelegate(m_icons, ItemDelegate::Lines::One, removal, this),
                          m_appCard);
    if (!m_isSample) {
        const auto name = [this](const QModelIndex &index) {
            return tr("Remove %1 from this checkpoint").arg(m_appModel.rows().at(index.row()).title);
        };
        m_apps->setOnRemove(
            name,
            [this](const QModelIndex &index) {
                return tr("Remove %1 from checkpoint").arg(m_appModel.rows().at(index.row()).title);
            },
            [this](const QModelIndex &index) {
                if (const SavedApp *const app = appAt(index))
                    m_parts.workspace.removeApp(SavedApp(*app), m_id);
            });
    }
    m_apps->setOnMenu([this](const QModelIndex &index, const QPoint &place) {
        if (const SavedApp *const app = appAt(index))
            showMenu(this, place, [&](QMenu *menu) { fillAppMenu(menu, *app); });
    });
    column->addWidget(makeListCard(m_appCard, m_apps));
    m_noApps = makeEmptyCard(tr("No apps saved in this checkpoint."));
    column->addWidget(m_noApps);
    return section;
}

QWidget *WorkspaceItemsView::makeTabsHead()
{
    auto *head = new QWidget;
    auto *row = makeRow(8, head);
    row->addWidget(new SymbolView("globe"));
    row->addWidget(makeLabel(tr("Browser tabs"), TextStyle::Strong), 1);
    if (!m_isSample) {
        m_addTabs = new Button(tr("Add current tabs"));
        m_addTabs->setToolTip(tr("Add tabs currently open in Brave, Chrome, Safari or Firefox. The saved screenshot is "
                                 "unchanged."));
        connect(m_addTabs, &QAbstractButton::clicked, this, [this] { m_parts.workspace.addCurrentBrowserTabs(m_id); });
        row->addWidget(m_addTabs);
    }
    return head;
}

QWidget *WorkspaceItemsView::makeTabs()
{
    auto *section = new QWidget;
    auto *column = makeColumn(8, section);
    column->addWidget(makeTabsHead());
    m_tabCard = new Card;
    const auto removal = m_isSample ? ItemDelegate::Removal::None : ItemDelegate::Removal::Button;
    m_tabs = new ItemList(tr("Browser tabs"), m_tabModel,
                          new ItemDelegate(m_icons, ItemDelegate::Lines::Two, removal, this), m_tabCard);
    if (!m_isSample) {
        const auto name = [this](const QModelIndex &index) {
            return tr("Remove tab %1 from checkpoint").arg(m_tabModel.rows().at(index.row()).title);
        };
        m_tabs->setOnRemove(
            name, [](const QModelIndex &) { return tr("Remove this tab from the checkpoint"); },
            [this](const QModelIndex &index) {
                if (const SavedTab *const tab = tabAt(index))
                    m_parts.workspace.removeTab(SavedTab(*tab), m_id);
            });
    }
    m_tabs->setOnMenu([this](const QModelIndex &index, const QPoint &place) {
        if (const SavedTab *const tab = tabAt(index))
            showMenu(this, place, [&](QMenu *menu) { fillTabMenu(menu, *tab); });
    });
    column->addWidget(makeListCard(m_tabCard, m_tabs));
    m_noTabs = makeEmptyCard(tr("No browser tabs in this checkpoint"),
                             tr("Open Brave, Chrome, Safari or Firefox, then choose Add current tabs. Private windows "
                                "are skipped where the browser exposes them; macOS may ask for browser access."));
    column->addWidget(m_noTabs);
    // Below the list, which begins where that of the apps does.
    column->addWidget(makeParagraph(tr("Saved links are listed here. Adding current tabs does not update the "
                                       "screenshot."),
                                    TextStyle::Small, Role::Dim));
    return section;
}

// By what the row says it is: the checkpoint may have changed since it was shown.
const SavedApp *WorkspaceItemsView::appAt(const QModelIndex &index) const
{
    const Checkpoint *const checkpoint = current();
    const QString key = m_appModel.rows().at(index.row()).key;
    for (qsizetype i = 0; checkpoint && i < checkpoint->apps.size(); ++i) {
        if (checkpoint->apps.at(i).id == key)
            return &checkpoint->apps.at(i);
    }
    return nullptr;
}

const SavedTab *WorkspaceItemsView::tabAt(const QModelIndex &index) const
{
    const Checkpoint *const checkpoint = current();
    const QUuid key(m_tabModel.rows().at(index.row()).key);
    for (qsizetype i = 0; checkpoint && i < checkpoint->tabs.size(); ++i) {
        if (checkpoint->tabs.at(i).id == key)
            return &checkpoint->tabs.at(i);
    }
    return nullptr;
}

void WorkspaceItemsView::fillAppMenu(QMenu *menu, const SavedApp &app)
{
    if (m_parts.rules.exclusions().appIDs().contains(app.id)) {
        menu->addAction(tr("Excluded from future captures"))->setEnabled(false);
        return;
    }
    addMenuItem(menu, tr("Always exclude %1").arg(menuText(appTitle(app))), {}, [this, app] {
        if (m_parts.rules.excludeApp(app))
            m_parts.messages.confirm(
                tr("%1 excluded from future captures. This checkpoint is unchanged.").arg(appTitle(app)));
    });
}

void WorkspaceItemsView::fillTabMenu(QMenu *menu, const SavedTab &tab)
{
    const CaptureExclusions websites{.domains = m_parts.rules.exclusions().domains};
    const std::optional<QString> domain = CaptureExclusions::domainFrom(tab.url);
    if (!websites.allows(tab)) {
        menu->addAction(tr("Excluded from future tab captures"))->setEnabled(false);
    } else if (domain) {
        addMenuItem(menu, tr("Always exclude %1").arg(menuText(*domain)), {}, [this, domain = *domain] {
            if (m_parts.rules.excludeDomain(domain))
                m_parts.messages.confirm(
                    tr("%1 excluded from future tab lists. Visible pages and this checkpoint’s media "
                       "are unchanged.")
                        .arg(domain));
        });
    }
}

void WorkspaceItemsView::showCheckpoint()
{
    const Checkpoint *const checkpoint = current();
    if (!checkpoint)
        return;
    QList<ItemRow> apps;
    for (const SavedApp &app : checkpoint->apps)
        apps.append({.key = app.id, .title = appTitle(app), .symbol = "app", .appID = app.id});
    QList<ItemRow> tabs;
    for (const SavedTab &tab : checkpoint->tabs) {
        const QString browser = ItemText::line(tab.browserName.value_or(QString()));
        tabs.append({.key = uuidText(tab.id),
                     .title = tabTitle(tab),
                     .detail = ItemText::line(tab.url),
                     .trailing = browser.isEmpty() ? u"Chrome"_qs : browser,
                     .symbol = "globe"});
    }
    m_appModel.setRows(apps);
    m_tabModel.setRows(tabs);
    m_appCard->setVisible(!apps.isEmpty());
    m_noApps->setVisible(apps.isEmpty());
    m_tabCard->setVisible(!tabs.isEmpty());
    m_noTabs->setVisible(tabs.isEmpty());
    if (m_windows)
        m_windows->show(*checkpoint);
}

void WorkspaceItemsView::showUndo()
{
    const std::optional<WorkspaceRemoval> &removal = m_parts.removals.lastRemoval();
    const QString name = removal && removal->checkpointID == m_id ? removedName(removal->item) : QString();
    m_undo->setVisible(!name.isEmpty());
    m_undo->setText(tr("Removed %1").arg(name));
}

} // namespace ardeno
