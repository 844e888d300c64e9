// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/Fields.h"

#include "ui/controls/InputWatch.h"
#include "ui/controls/Label.h"
#include "ui/controls/Surfaces.h"
#include "ui/controls/TextKeys.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QValidator>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ardeno {

namespace {

constexpr QSize track(34, 20);
constexpr int switchGap = 10;

// What is pasted may have line breaks, which a field of one line would show as something else.
class OneLine final : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString &text, int &caret) const override
    {
        static const QRegularExpression lineBreaks("[\n\r\\x{2028}\\x{2029}]+");
        static const QRegularExpression outer("^[\n\r\\x{2028}\\x{2029}]+|[\n\r\\x{2028}\\x{2029}]+$");
        if (text.contains(lineBreaks)) {
            text.remove(outer).replace(lineBreaks, " ");
            caret = std::min<int>(caret, static_cast<int>(text.size()));
        }
        return Acceptable;
    }
};

} // namespace

TextField::TextField(const QString &name, const QString &placeholder, const QString &symbol, QWidget *parent)
    : QLineEdit(parent), m_symbol(symbol)
{
    setAccessibleName(name);
    setPlaceholderText(placeholder);
    setFrame(false);
    setValidator(new OneLine(this));
    setFont(AppTheme::instance().font(TextStyle::Body));
    setTextMargins(symbol.isEmpty() ? 8 : 31, 0, 8, 0);
    setMinimumHeight(std::max(32, static_cast<int>(std::ceil(QFontMetricsF(font()).height())) + 12));
    QPalette own; // It draws its own rounded background; the rest follows the window.
    own.setColor(QPalette::Base, Qt::transparent);
    setPalette(own);
}

bool TextField::event(QEvent *event)
{
    if (!TextKeys::isLeft(*event, this))
        return QLineEdit::event(event);
    event->ignore();
    return true;
}

void TextField::keyPressEvent(QKeyEvent *event)
{
    // A search is ended by Escape.
    if (event->key() == Qt::Key_Escape && !m_symbol.isEmpty() && !text().isEmpty())
        clear();
    else
        QLineEdit::keyPressEvent(event);
}

void TextField::paintEvent(QPaintEvent *event)
{
    {
        QPainter painter(this);
        Drawing::field(painter, rect(), hasFocus());
        if (!m_symbol.isEmpty())
            Symbols::draw(painter, m_symbol, {11, (height() - 16) / 2.0, 16, 16}, themeColor(Role::Dim));
    }
    QLineEdit::paintEvent(event);
}

Switch::Switch(const QString &text, QWidget *parent) : QAbstractButton(parent)
{
    setText(text);
    setCheckable(true);
    setFont(AppTheme::instance().font(TextStyle::Body));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Switch::sizeHint() const
{
    const QFontMetricsF metrics(font());
    return {static_cast<int>(std::ceil(metrics.horizontalAdvance(text()))) + switchGap + track.width() + 4,
            std::max(track.height(), static_cast<int>(std::ceil(metrics.height()))) + 4};
}

void Switch::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setFont(font());
    painter.setPen(themeColor(isEnabled() ? Role::Text : Role::Faint));
    painter.drawText(rect().adjusted(0, 0, -track.width() - 2, 0), Qt::AlignLeft | Qt::AlignVCenter, text());
    const QRectF slot(width() - track.width() - 2, (height() - track.height()) / 2.0, track.width(), track.height());
    Drawing::panel(painter, slot, 10, themeColor(isChecked() ? Role::Accent : Role::Outline), Qt::transparent);
    const QRectF knob(isChecked() ? slot.right() - 18 : slot.left() + 2, slot.top() + 2, 16, 16);
    Drawing::panel(painter, knob, 8, Qt::white, Qt::transparent);
    if (m_showsFocus)
        Drawing::focusRing(painter, slot.adjusted(-2, -2, 2, 2), 12);
}

void Switch::focusInEvent(QFocusEvent *event)
{
    m_showsFocus = event->reason() != Qt::MouseFocusReason && InputWatch::instance().isByKeys();
    QAbstractButton::focusInEvent(event);
}

void Switch::focusOutEvent(QFocusEvent *event)
{
    m_showsFocus = false;
    QAbstractButton::focusOutEvent(event);
}

QVBoxLayout *makeLabelled(const QString &label, QWidget *field, QWidget *owner)
{
    auto *column = makeColumn(5, owner);
    column->addWidget(makeLabel(label, TextStyle::Medium, Role::Dim));
    column->addWidget(field);
    return column;
}

void bind(QLineEdit *field, const Observable<QString> &text, std::function<void(const QString &)> write,
          Subscriptions &subscriptions)
{
    QObject::connect(field, &QLineEdit::textEdited, field, std::move(write));
    // Only what comes from elsewhere, so that the cursor stays.
    const auto show = [field, &text] {
        if (field->text() != text())
            field->setText(text());
    };
    subscriptions.watch(show, text);
}

void bind(Switch *control, const Observable<bool> &isOn, std::function<void(bool)> write, Subscriptions &subscriptions)
{
    QObject::connect(control, &QAbstractButton::toggled, control, std::move(write));
    subscriptions.watch([control, &isOn] { control->setChecked(isOn()); }, isOn);
}

} // namespace ardeno
