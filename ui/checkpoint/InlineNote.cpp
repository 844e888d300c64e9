// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/checkpoint/InlineNote.h"

#include "ui/checkpoint/QuickListEditor.h"
#include "ui/controls/Label.h"
#include "ui/controls/Surfaces.h"
#include "ui/theme/Drawing.h"

#include <QPainter>

namespace ardeno {

namespace {

// Every write is a write of the whole library, so it waits for a pause.
constexpr std::chrono::milliseconds pauseBeforeWriting(700);

} // namespace

InlineNote::InlineNote(const Text &text, QWidget *parent)
    : QWidget(parent),
      m_editor(new QuickListEditor(text.title, text.size == Size::Prominent ? 16 : 13)),
      m_placeholder(text.placeholder.isEmpty() ? tr("Click to add a quick list…") : text.placeholder)
{
    m_hint = makeLabel(text.isSample ? tr("Enter for next item · Sample edits are temporary")
                                     : tr("Enter for next item · Click away to finish"),
                       TextStyle::Tiny, Role::Dim);
    m_hint->hide();
    m_unsaved = makeLabel(tr("Not saved yet · Saving is tried again"), TextStyle::Tiny, Role::AmberText);
    m_unsaved->hide();
    auto *column = makeColumn(4, this);
    column->setContentsMargins(8, 8, 8, 8);
    column->addWidget(makeHeader(text));
    column->addWidget(m_editor);
    column->addWidget(m_unsaved);
    column->addWidget(m_hint);
    m_editor->setPlaceholderText(m_placeholder);
    m_editor->setOnFocusChange([this](bool isFocused) { showFocus(isFocused); });
    m_editor->setOnTextChange([this] {
        if (m_editor->text() != m_kept)
            m_pause.start(pauseBeforeWriting);
    });
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, [this] { commit(); });
}

InlineNote::~InlineNote()
{
    commit();
    m_editor->setOnFocusChange({});
    m_editor->setOnTextChange({});
}

QWidget *InlineNote::makeHeader(const Text &text)
{
    auto *header = new QWidget;
    auto *row = makeRow(8, header);
    row->addWidget(new SymbolView(text.symbol, Role::Dim, 16));
    QLabel *const title = makeLabel(text.title.toUpper(), TextStyle::Eyebrow, Role::Dim);
    QFont font = AppTheme::instance().font(9, QFont::DemiBold);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 1.1);
    title->setFont(font);
    row->addWidget(title, 1);
    return header;
}

void InlineNote::setText(const QString &text)
{
    const bool isUnchanged = m_editor->text() == m_kept;
    m_kept = text;
    if (isUnchanged)
        m_editor->setText(text);
}

void InlineNote::commit()
{
    m_pause.stop();
    const QString typed = m_editor->text();
    if (typed == m_kept || !m_commit)
        return;
    const QString before = std::exchange(m_kept, typed);
    if (!m_commit(typed))
        m_kept = before;
}

void InlineNote::setUnsaved(bool isUnsaved)
{
    m_unsaved->setVisible(isUnsaved);
}

void InlineNote::showFocus(bool isFocused)
{
    m_isFocused = isFocused;
    m_hint->setVisible(isFocused);
    m_editor->setPlaceholderText(isFocused ? QString() : m_placeholder);
    update();
    if (!isFocused)
        commit();
}

void InlineNote::paintEvent(QPaintEvent *)
{
    if (!m_isFocused)
        return;
    QPainter painter(this);
    Drawing::panel(painter, rect(), 7, themeColor(Role::Field), themeColor(Role::AccentText));
}

} // namespace ardeno
