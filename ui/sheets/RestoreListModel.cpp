// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/RestoreListModel.h"

#include "support/Identifiers.h"
#include "ui/items/ItemText.h"

#include <QCoreApplication>

#include <utility>

namespace ardeno {

namespace {

QString restoreText(const char *text)
{
    return QCoreApplication::translate("ardeno::RestoreSheet", text);
}

ItemStatus toOpen()
{
    return {restoreText("Will open"), "arrow.up.right", Role::AccentText, true};
}

ItemStatus unknown()
{
    return {restoreText("Checking…"), {}, Role::Dim, false};
}

// The rows of one section make one card.
void closeCard(QList<RestoreRow> &rows, qsizetype begin)
{
    if (begin >= rows.size())
        return;
    rows[begin].isFirst = true;
    rows.last().isLast = true;
}

} // namespace

RestoreListModel::RestoreListModel(const Checkpoint &checkpoint) : m_checkpoint(checkpoint)
{
    rebuild();
}

ItemStatus RestoreListModel::statusOf(const SavedApp &app) const
{
    if (!m_plan)
        return unknown();
    const ItemStatus missing{restoreText("Not installed"), "exclamationmark.triangle", Role::AmberText, false};
    return m_appStatus.value(app.id, missing);
}

ItemStatus RestoreListModel::statusOf(const SavedTab &tab) const
{
    if (!m_plan)
        return unknown();
    const ItemStatus open{restoreText("Already open"), "checkmark", Role::SageText, false};
    return m_tabStatus.value(tab.id, open);
}

void RestoreListModel::readPlan()
{
    m_appStatus.clear();
    m_tabStatus.clear();
    const auto note = [](auto &statuses, const auto &items, const ItemStatus &status) {
        for (const auto &item : items)
            statuses.insert(item.id, status);
    };
    note(m_appStatus, m_plan->activeApps, {restoreText("Active"), "checkmark", Role::SageText, false});
    note(m_appStatus, m_plan->appsToOpen, toOpen());
    note(m_tabStatus, m_plan->unavailableTabs,
         {restoreText("Unavailable"), "exclamationmark.triangle", Role::AmberText, false});
    note(m_tabStatus, m_plan->duplicateTabs, {restoreText("Duplicate skipped"), "square.on.square", Role::Dim, false});
    note(m_tabStatus, m_plan->unverifiedTabs,
         {restoreText("Select if missing"), "questionmark.circle", Role::AmberText, true});
    note(m_tabStatus, m_plan->tabsToOpen, toOpen());
}

void RestoreListModel::setPlan(const RestorePlan &plan)
{
    if (m_plan == plan)
        return;
    // Ticked is what has been missing from the start or has become so; what was missing already is as the user left it.
    const RestorePlan before = m_plan.value_or(RestorePlan());
    m_plan = plan;
    readPlan();
    const QSet<QString> apps = idsOf(plan.appsToOpen);
    const QSet<QUuid> tabs = idsOf(plan.tabsToOpen);
    m_apps = (m_apps & apps) + (apps - idsOf(before.appsToOpen));
    QSet<QUuid> choices = idsOf(plan.unverifiedTabs);
    choices.unite(tabs);
    m_tabs.intersect(choices);
    m_tabs.unite(tabs - idsOf(before.tabsToOpen));
    rebuild();
}

void RestoreListModel::setUnplaced(const QList<UnplacedWindow> &windows)
{
    const QList<SavedWindow> own = m_checkpoint.windows.value_or(QList<SavedWindow>());
    QList<UnplacedWindow> relevant;
    for (const UnplacedWindow &unplaced : windows) {
        if (own.contains(unplaced.window))
            relevant.append(unplaced);
    }
    if (std::exchange(m_unplaced, relevant) != relevant)
        rebuild();
}

void RestoreListModel::addApps(QList<RestoreRow> &rows) const
{
    if (m_checkpoint.apps.isEmpty())
        return;
    rows.append({.title = restoreText("APPLICATIONS")});
    const qsizetype begin = rows.size();
    for (const SavedApp &app : m_checkpoint.apps)
        rows.append({.kind = RestoreRow::Kind::App,
                     .title = ItemText::line(app.name),
                     .appID = app.id,
                     .status = statusOf(app)});
    closeCard(rows, begin);
}

void RestoreListModel::addTabs(QList<RestoreRow> &rows) const
{
    if (m_checkpoint.tabs.isEmpty())
        return;
    rows.append({.title = restoreText("BROWSER TABS")});
    const qsizetype begin = rows.size();
    for (const SavedTab &tab : m_checkpoint.tabs) {
        const QString title = ItemText::line(tab.title);
        rows.append({.kind = RestoreRow::Kind::Tab,
                     .title = title.isEmpty() ? restoreText("Unavailable page") : title,
                     .detail = tab.safeURL() ? ItemText::line(tab.url) : restoreText("Unavailable URL"),
                     .tabID = tab.id,
                     .status = statusOf(tab)});
    }
    closeCard(rows, begin);
    if (m_plan && m_plan->tabCheckWarning)
        rows.append({.kind = RestoreRow::Kind::Warning, .title = *m_plan->tabCheckWarning});
}

void RestoreListModel::addWindows(QList<RestoreRow> &rows) const
{
    if (m_unplaced.isEmpty())
        return;
    rows.append({.title = restoreText("NOT PLACED BY THE LAST RESUME")});
    const qsizetype begin = rows.size();
    for (const UnplacedWindow &unplaced : m_unplaced) {
        const SavedWindow &window = unplaced.window;
        const QString title = ItemText::line(window.title);
        rows.append({.kind = RestoreRow::Kind::Window,
                     .title = title.isEmpty() ? ItemText::line(window.appName) : title,
                     .detail = title.isEmpty() ? QString() : ItemText::line(window.appName),
                     .appID = window.appID,
                     .status = {.text = QCoreApplication::translate("ardeno::WindowRestore",
                                                                    unplaced.reason.toUtf8().constData()),
                                .symbol = "exclamationmark.triangle",
                                .role = Role::AmberText}});
    }
    closeCard(rows, begin);
}

void RestoreListModel::rebuild()
{
    QList<RestoreRow> rows;
    addApps(rows);
    addTabs(rows);
    addWindows(rows);
    if (rows.size() != m_rows.size()) {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
    } else if (!rows.isEmpty()) {
        // The place in the list, and what has the focus there, stay.
        m_rows = std::move(rows);
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
    }
    if (m_chosen)
        m_chosen();
}

bool RestoreListModel::isChosen(const RestoreRow &row) const
{
    return row.kind == RestoreRow::Kind::App ? m_apps.contains(row.appID) : m_tabs.contains(row.tabID);
}

void RestoreListModel::toggle(const QModelIndex &index)
{
    const RestoreRow &chosen = row(index);
    if (!chosen.status.isChoice)
        return;
    const bool isOn = !isChosen(chosen);
    if (chosen.kind == RestoreRow::Kind::App) {
        isOn ? void(m_apps.insert(chosen.appID)) : void(m_apps.remove(chosen.appID));
    } else {
        isOn ? void(m_tabs.insert(chosen.tabID)) : void(m_tabs.remove(chosen.tabID));
    }
    Q_EMIT dataChanged(index, index);
    if (m_chosen)
        m_chosen();
}

int RestoreListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant RestoreListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const RestoreRow &shown = row(index);
    if (role == Qt::DisplayRole)
        return shown.title;
    if (role == Qt::CheckStateRole && shown.status.isChoice)
        return isChosen(shown) ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::ToolTipRole && !shown.detail.isEmpty())
        return QString(shown.title + '\n' + shown.detail).toHtmlEscaped().replace('\n', "<br>");
    if (role != Qt::AccessibleTextRole)
        return {};
    QStringList parts{shown.title, shown.detail, shown.status.text};
    parts.removeAll(QString());
    return parts.join(", ");
}

Qt::ItemFlags RestoreListModel::flags(const QModelIndex &index) const
{
    const RestoreRow &shown = row(index);
    if (shown.kind == RestoreRow::Kind::Header)
        return Qt::ItemNeverHasChildren; // The arrow keys pass it over.
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return shown.status.isChoice ? flags | Qt::ItemIsUserCheckable : flags;
}

} // namespace ardeno
