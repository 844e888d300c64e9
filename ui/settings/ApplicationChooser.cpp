// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settings/ApplicationChooser.h"

#include "support/Text.h"
#include "ui/controls/Fields.h"
#include "ui/controls/Label.h"
#include "ui/controls/PlainList.h"
#include "ui/controls/Surfaces.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QAbstractListModel>
#include <QFileInfo>
#include <QIcon>
#include <QKeyEvent>
#include <QPainter>

namespace ardeno {

namespace {

constexpr int iconExtent = 24;
constexpr int applicationHeight = 38;

// A name of the icon theme or a path; null when there is no such icon.
QIcon applicationIcon(const QString &name)
{
    if (name.startsWith('/'))
        return QFileInfo(name).isFile() ? QIcon(name) : QIcon();
    return QIcon::fromTheme(name);
}

} // namespace

class ApplicationChooser::Model final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    const QList<InstalledApplication> &applications() const { return m_applications; }

    void setApplications(const QList<InstalledApplication> &applications)
    {
        beginResetModel();
        m_applications = applications;
        endResetModel();
    }

    int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_applications.size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        const InstalledApplication &application = m_applications.at(index.row());
        if (role == Qt::DisplayRole)
            return application.name;
        if (role == Qt::ToolTipRole)
            return application.id; // Two may have one name.
        return {};
    }

    // Read when it is first seen.
    const QIcon &icon(const QString &name) const
    {
        const auto known = m_icons.constFind(name);
        return known != m_icons.constEnd() ? *known : *m_icons.insert(name, applicationIcon(name));
    }

private:
    QList<InstalledApplication> m_applications;
    mutable QHash<QString, QIcon> m_icons;
};

namespace {

class ApplicationDelegate final : public QStyledItemDelegate {
public:
    using Draw = std::function<void(QPainter &, const QRectF &, int)>;

    ApplicationDelegate(Draw drawIcon, QObject *parent) : QStyledItemDelegate(parent), m_drawIcon(std::move(drawIcon))
    {
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const RowState state = RowState::of(option);
        const QRectF row = QRectF(option.rect).adjusted(0, 1, 0, -1);
        if (state.isSelected || state.isHovered)
            Drawing::panel(*painter, row, 8, themeColor(state.isSelected ? Role::AccentSoft : Role::Hover),
                           Qt::transparent);
        if (state.showsFocus)
            Drawing::focusRing(*painter, row, 8);
        m_drawIcon(*painter, {row.left() + 10, row.center().y() - iconExtent / 2.0, iconExtent, iconExtent},
                   index.row());
        Drawing::text(*painter, row.adjusted(44, 0, -10, 0), index.data().toString(),
                      state.isSelected ? TextStyle::Medium : TextStyle::Body, themeColor(Role::Text));
    }

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        return {200, applicationHeight};
    }

private:
    Draw m_drawIcon;
};

} // namespace

ApplicationChooser::ApplicationChooser(QList<InstalledApplication> applications, Chosen chosen)
    : Sheet(tr("Choose application"), 460),
      m_applications(std::move(applications)),
      m_chosen(std::move(chosen)),
      m_model(new Model(this)),
      m_search(new TextField(tr("Find an application"), tr("Find an application"), "magnifyingglass")),
      m_list(makeList()),
      m_none(makeParagraph(tr("No applications found"), TextStyle::Body, Role::Dim))
{
    column()->addWidget(makeLabel(tr("Choose application"), TextStyle::SheetTitle));
    column()->addWidget(m_search);
    column()->addWidget(m_list, 1);
    column()->addWidget(m_none, 1, Qt::AlignTop);
    addButton(tr("Cancel"), Button::Kind::Bordered, [this] { close(); });
    m_confirm = addButton(tr("Exclude app"), Button::Kind::Prominent, [this] { choose(); });
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString &text) { search(text); });
    m_search->installEventFilter(this);
    setMinimumHeight(520);
    setFirstFocus(m_search);
    search({});
}

PlainList *ApplicationChooser::makeList()
{
    auto *list = new PlainList(tr("Applications"));
    list->setModel(m_model);
    const auto drawIcon = [model = m_model](QPainter &painter, const QRectF &square, int row) {
        const QIcon &icon = model->icon(model->applications().at(row).iconName);
        if (icon.isNull())
            Symbols::draw(painter, "app", square.adjusted(4, 4, -4, -4), themeColor(Role::Dim));
        else
            icon.paint(&painter, square.toRect());
    };
    list->setItemDelegate(new ApplicationDelegate(drawIcon, list));
    list->setUniformItemSizes(true);
    connect(list, &QAbstractItemView::doubleClicked, this, [this] { choose(); });
    return list;
}

void ApplicationChooser::search(const QString &text)
{
    const QString wanted = text.trimmed();
    QList<InstalledApplication> found;
    for (const InstalledApplication &application : m_applications) {
        if (Text::containsName(application.name, wanted) || Text::containsName(application.id, wanted))
            found.append(application);
    }
    m_model->setApplications(found);
    m_list->setVisible(!found.isEmpty());
    m_none->setVisible(found.isEmpty());
    m_confirm->setEnabled(!found.isEmpty());
    m_list->showCurrent(found.isEmpty() ? -1 : 0);
}

bool ApplicationChooser::eventFilter(QObject *watched, QEvent *event)
{
    // From the search the arrow keys walk through the list.
    const auto *const key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent *>(event) : nullptr;
    const int step = !key ? 0 : key->key() == Qt::Key_Down ? 1 : key->key() == Qt::Key_Up ? -1 : 0;
    if (watched != m_search || step == 0)
        return Sheet::eventFilter(watched, event);
    const int row = m_list->currentIndex().row() + step;
    if (row >= 0 && row < m_model->rowCount({}))
        m_list->showCurrent(row);
    return true;
}

void ApplicationChooser::choose()
{
    const int row = m_list->currentIndex().row();
    if (row < 0 || row >= m_model->rowCount({}))
        return;
    const InstalledApplication application = m_model->applications().at(row);
    const Chosen chosen = m_chosen;
    close();
    chosen(application);
}

} // namespace ardeno
