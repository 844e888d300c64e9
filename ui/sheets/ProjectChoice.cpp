// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/ProjectChoice.h"

#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QAbstractItemView>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace ardeno {

namespace {

constexpr int chevronExtent = 16;
constexpr int choicePadding = 10;

} // namespace

ProjectChoice::ProjectChoice(AppStore &store) : m_store(store)
{
    setAccessibleName(tr("Project"));
    setFont(AppTheme::instance().font(TextStyle::Body));
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon); // Long names do not widen it.
    setMaxVisibleItems(12);
    view()->setAccessibleName(tr("Projects"));
    view()->setTextElideMode(Qt::ElideRight);
    connect(this, &QComboBox::activated, this, [this](int row) { choose(row); });
    m_observations.watch([this] { showProjects(); }, store.projects, store.draftProjectID);
}

void ProjectChoice::showProjects()
{
    const QSignalBlocker blocker(this);
    clear();
    int chosen = -1;
    for (const Project &project : m_store.availableProjects()) {
        if (project.id == m_store.draftProjectID())
            chosen = count();
        addItem(project.name.simplified(), project.id);
    }
    if (count() > 0)
        insertSeparator(count());
    addItem(tr("New project"), QUuid());
    setCurrentIndex(chosen >= 0 ? chosen : count() - 1);
    update();
}

void ProjectChoice::choose(int row)
{
    const QUuid id = itemData(row).toUuid();
    m_store.draftProjectID.set(id.isNull() ? std::nullopt : std::optional(id));
}

void ProjectChoice::showPopup()
{
    // The popup is a window of its own, which takes no palette from this one.
    view()->parentWidget()->setPalette(AppTheme::instance().palette());
    view()->setPalette(AppTheme::instance().palette());
    QComboBox::showPopup();
}

QSize ProjectChoice::sizeHint() const
{
    return {200, std::max(34, static_cast<int>(std::ceil(QFontMetricsF(font()).height())) + 14)};
}

void ProjectChoice::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    Drawing::panel(painter, rect(), 7, themeColor(Role::Field), themeColor(hasFocus() ? Role::Accent : Role::Line));
    if (hasFocus())
        Drawing::focusRing(painter, rect(), 7);
    const QColor ink = themeColor(isEnabled() ? Role::Text : Role::Faint);
    const QRectF chevron(width() - choicePadding - chevronExtent, (height() - chevronExtent) / 2.0, chevronExtent,
                         chevronExtent);
    Symbols::draw(painter, "chevron.down", chevron, themeColor(Role::Dim));
    const QRectF text(choicePadding, 0, chevron.left() - 2 * choicePadding, height());
    Drawing::text(painter, text, currentText().left(500), TextStyle::Body, ink);
}

void ProjectChoice::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

} // namespace ardeno
