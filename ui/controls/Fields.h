// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Observable.h"

#include <QAbstractButton>
#include <QLineEdit>

#include <functional>

class QVBoxLayout;

namespace ardeno {

// A field for one line of text. The name is what screen readers say; a placeholder is no name.
class TextField : public QLineEdit {
public:
    explicit TextField(const QString &name, const QString &placeholder = {}, const QString &symbol = {},
                       QWidget *parent = nullptr);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString m_symbol;
};

// A switch with its text beside it.
class Switch final : public QAbstractButton {
public:
    explicit Switch(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    bool m_showsFocus = false;
};

// A field with its label above it.
QVBoxLayout *makeLabelled(const QString &label, QWidget *field, QWidget *owner = nullptr);

// They show the property for as long as the subscriptions live, and give what the user makes of it to its owner.
void bind(QLineEdit *field, const Observable<QString> &text, std::function<void(const QString &)> write,
          Subscriptions &subscriptions);
void bind(Switch *control, const Observable<bool> &isOn, std::function<void(bool)> write, Subscriptions &subscriptions);

} // namespace ardeno
