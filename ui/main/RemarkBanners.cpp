// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/RemarkBanners.h"

#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/controls/Surfaces.h"
#include "ui/main/Banners.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QLabel>

#include <algorithm>

namespace ardeno {

namespace {

struct RemarkTexts final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::RemarkBanners)
};

// Names have any length; the window keeps its room.
QString shortened(const QString &sentence)
{
    constexpr qsizetype most = 400;
    return sentence.size() <= most ? sentence : sentence.first(most - 1) + u'…';
}

class RemarkBanner final : public QWidget {
public:
    RemarkBanner(Messages &messages, Applications &applications, SessionFlow &sessions, const Remark &remark)
    {
        QHBoxLayout *const row = makeStripRow(this);
        row->addWidget(new SymbolView("exclamationmark.circle", Role::AccentText));
        row->addWidget(makeParagraph(shortened(remark.sentence)), 1);
        setAccessibleName(remark.sentence);
        if (remark.file)
            addAction(row, RemarkTexts::tr("Show file"),
                      [&applications, file = *remark.file] { applications.showFile(file); });
        if (remark.hasUnsavedSession)
            addAction(row, RemarkTexts::tr("Save now"), [&sessions] { sessions.saveUnsavedSessions(); });
        Button *const close = Button::makeIcon("xmark", RemarkTexts::tr("Dismiss the remark"));
        QObject::connect(close, &QAbstractButton::clicked, this, [&messages, remark] { messages.dismiss(remark); });
        row->addWidget(close);
    }

protected:
    void paintEvent(QPaintEvent *) override { drawBanner(this, Role::AccentSoft, Qt::TopEdge); }

private:
    void addAction(QHBoxLayout *row, const QString &text, const std::function<void()> &act)
    {
        auto *button = new Button(text);
        QObject::connect(button, &QAbstractButton::clicked, this, act);
        row->addWidget(button);
    }
};

} // namespace

RemarkBanners::RemarkBanners(Messages &messages, Applications &applications, SessionFlow &sessions, QWidget *parent)
    : QWidget(parent), m_messages(messages), m_applications(applications), m_sessions(sessions)
{
    makeColumn(0, this);
    m_subscriptions.watch([this] { showRemarks(); }, messages.remarks);
}

void RemarkBanners::showRemarks()
{
    constexpr qsizetype most = 3; // What is below has its place, too; who dismisses one sees the next.
    const bool hadFocus = isAncestorOf(window()->focusWidget());
    const QList<Remark> &all = m_messages.remarks();
    setVisible(!all.isEmpty()); // Before its strips go: what is hidden hands the focus on.
    qDeleteAll(findChildren<QWidget *>(Qt::FindDirectChildrenOnly));
    const QList<Remark> newest = all.last(std::min(all.size(), most));
    for (const Remark &remark : newest) {
        auto *strip = new RemarkBanner(m_messages, m_applications, m_sessions, remark);
        layout()->addWidget(strip);
        QAccessibleEvent said(strip, QAccessible::Alert);
        QAccessible::updateAccessibility(&said);
    }
    const QList<Button *> buttons = findChildren<Button *>();
    if (hadFocus && !buttons.isEmpty())
        buttons.last()->setFocus(Qt::OtherFocusReason);
}

} // namespace ardeno
