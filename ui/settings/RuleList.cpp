// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settings/RuleList.h"

#include "ui/controls/Button.h"
#include "ui/controls/Surfaces.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

namespace ardeno {

namespace {

constexpr int ruleHeight = 45;
constexpr int mostRulesShown = 6;
constexpr int roomForButton = 118;

class RuleDelegate final : public QStyledItemDelegate {
public:
    RuleDelegate(QString symbol, QObject *parent) : QStyledItemDelegate(parent), m_symbol(std::move(symbol)) {}

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QRectF row = option.rect;
        Symbols::draw(*painter, m_symbol, {row.left() + 12, row.center().y() - 8, 16, 16}, themeColor(Role::Dim));
        Drawing::text(*painter, row.adjusted(38, 0, -roomForButton, 0), index.data().toString(), TextStyle::Medium,
                      themeColor(Role::Text));
        if (index.row() + 1 < index.model()->rowCount())
            Drawing::edge(*painter, row, Qt::BottomEdge, themeColor(Role::Line));
        if (RowState::of(option).showsFocus)
            Drawing::focusRing(*painter, row.adjusted(2, 2, -2, -2), 8);
    }

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override { return {200, ruleHeight}; }

private:
    QString m_symbol;
};

} // namespace

class RuleList::Model final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    const QList<ExclusionRule> &rules() const { return m_rules; }

    void setRules(const QList<ExclusionRule> &rules)
    {
        beginResetModel();
        m_rules = rules;
        endResetModel();
    }

    int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rules.size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        const bool isText = role == Qt::DisplayRole || role == Qt::ToolTipRole;
        return isText ? QVariant(m_rules.at(index.row()).name) : QVariant();
    }

private:
    QList<ExclusionRule> m_rules;
};

RuleList::RuleList(const QString &name, const QString &symbol) : PlainList(name), m_model(new Model(this))
{
    setModel(m_model);
    setItemDelegate(new RuleDelegate(symbol, this));
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void RuleList::setRules(const QList<ExclusionRule> &rules)
{
    if (rules == m_model->rules())
        return;
    const int row = currentIndex().row();
    const int scrolled = verticalScrollBar()->value();
    const bool hadFocus = isAncestorOf(window()->focusWidget());
    m_model->setRules(rules);
    setFixedHeight(static_cast<int>(qMin<qsizetype>(rules.size(), mostRulesShown)) * ruleHeight);
    verticalScrollBar()->setValue(scrolled);
    if (!rules.isEmpty() && row >= 0)
        setCurrentIndex(m_model->index(qMin(row, static_cast<int>(rules.size()) - 1), 0));
    placeButtons();
    if (hadFocus) // The button that had it is gone.
        setFocus(Qt::OtherFocusReason);
}

void RuleList::resizeEvent(QResizeEvent *event)
{
    PlainList::resizeEvent(event);
    placeButtons();
}

void RuleList::scrollContentsBy(int dx, int dy)
{
    PlainList::scrollContentsBy(dx, dy);
    placeButtons();
}

void RuleList::keyPressEvent(QKeyEvent *event)
{
    const bool isAllowing = event->key() == Qt::Key_Delete || event->key() == Qt::Key_Return ||
                            event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (isAllowing && currentIndex().isValid())
        allow(currentIndex().row());
    else
        PlainList::keyPressEvent(event);
}

void RuleList::allow(int row)
{
    setCurrentIndex(m_model->index(row, 0));
    if (m_allowed)
        m_allowed(m_model->rules().at(row).key);
}

void RuleList::placeButtons()
{
    const int first = verticalScrollBar()->value() / ruleHeight;
    const int last = first + viewport()->height() / ruleHeight + 1;
    QWidget *before = this;
    for (int row = 0; row < m_model->rowCount({}); ++row) {
        const QModelIndex index = m_model->index(row, 0);
        const bool isSeen = row >= first && row <= last;
        QWidget *holder = indexWidget(index);
        if (isSeen && !holder)
            setIndexWidget(index, holder = makeButton(row));
        else if (!isSeen && holder)
            setIndexWidget(index, nullptr);
        if (!isSeen)
            continue;
        auto *const button = holder->findChild<QAbstractButton *>();
        setTabOrder(before, button); // From row to row, not in the order in which they were made.
        before = button;
    }
}

QWidget *RuleList::makeButton(int row)
{
    auto *holder = new QWidget;
    auto *line = makeRow(0, holder);
    line->setContentsMargins(0, 0, 8, 0);
    line->addStretch();
    auto *button = new Button(tr("Allow again"), Button::Kind::Plain);
    button->setAccessibleName(tr("Allow %1 again").arg(m_model->rules().at(row).name));
    connect(button, &QAbstractButton::clicked, this, [this, row] { allow(row); });
    line->addWidget(button);
    return holder;
}

} // namespace ardeno
