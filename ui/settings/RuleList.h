// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/PlainList.h"

#include <QAbstractListModel>
#include <QCoreApplication>

namespace ardeno {

// One thing that is left out of captures.
struct ExclusionRule {
    QString key = {}; // What the store knows it by.
    QString name = {};

    bool operator==(const ExclusionRule &) const = default;
};

// What is excluded, each with a button that allows it again. Only rows that are seen have one.
class RuleList final : public PlainList {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ExclusionsView)

public:
    RuleList(const QString &name, const QString &symbol);

    void setRules(const QList<ExclusionRule> &rules);

    void setOnAllow(std::function<void(const QString &key)> allowed) { m_allowed = std::move(allowed); }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    class Model;

    void placeButtons();
    QWidget *makeButton(int row);
    void allow(int row);

    Model *m_model;
    std::function<void(const QString &)> m_allowed;
};

} // namespace ardeno
