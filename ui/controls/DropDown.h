// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QVariant>

#include <functional>

namespace ardeno {

// One of several options, chosen from a menu, with the arrow keys or by the letter that it begins with.
class DropDown final : public QAbstractButton {
public:
    enum class Apart { No, Yes };

    struct Option {
        QString text = {};
        QVariant value = {};
        Apart apart = Apart::No; // Below a line.
    };

    // The name says what is chosen.
    explicit DropDown(const QString &name, QWidget *parent = nullptr);

    void setOptions(const QList<Option> &options);
    // Does not call the handler. Of an unknown value nothing is shown.
    void setCurrent(const QVariant &value);

    QVariant current() const;

    void setOnChoose(std::function<void(const QVariant &)> chosen) { m_chosen = std::move(chosen); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showCurrent();
    void choose(qsizetype index);
    // The one after the current that begins with the letter; false when it is none.
    bool chooseNext(const QString &letter);
    void openMenu();

    QString m_name;
    QList<Option> m_options;
    qsizetype m_current = -1;
    std::function<void(const QVariant &)> m_chosen;
};

} // namespace ardeno
