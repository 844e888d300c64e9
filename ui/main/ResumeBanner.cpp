// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/ResumeBanner.h"

#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/controls/Progress.h"
#include "ui/controls/Surfaces.h"
#include "ui/main/Banners.h"

#include <QAccessible>
#include <QCoreApplication>

namespace ardeno {

namespace {

struct ResumeStripTexts final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ResumeBanner)
};

} // namespace

ResumeBanner::ResumeBanner(ResumeFlow &resumes, const Library &library, QWidget *parent)
    : QWidget(parent),
      m_resumes(resumes),
      m_library(library),
      m_text(makeParagraphOfLines(2)),
      m_stop(new Button(ResumeStripTexts::tr("Stop")))
{
    QHBoxLayout *const row = makeStripRow(this);
    row->addWidget(new Progress(ResumeStripTexts::tr("Working")));
    row->addWidget(m_text, 1);
    m_stop->setAccessibleName(ResumeStripTexts::tr("Stop resuming"));
    m_stop->setHint(ResumeStripTexts::tr("What is open already stays open"));
    connect(m_stop, &QAbstractButton::clicked, this, [this] { m_resumes.stopResume(); });
    row->addWidget(m_stop);
    hide();
    m_patience.setSingleShot(true);
    m_patience.setInterval(std::chrono::seconds(2));
    connect(&m_patience, &QTimer::timeout, this, [this] { appear(); });
    m_subscriptions.watch([this] { showProgress(); }, resumes.resuming);
}

void ResumeBanner::setPatience(std::chrono::milliseconds patience)
{
    m_patience.setInterval(patience);
}

QString ResumeBanner::sentence(const ResumeProgress &progress) const
{
    if (progress.isStopping)
        return ResumeStripTexts::tr("Stopping. What has begun still comes to its end.");
    const Checkpoint *const checkpoint = m_library.checkpoint(progress.checkpointID);
    const QString name = checkpoint ? checkpoint->displayName() : QString();
    return progress.awaited.isEmpty()
               ? ResumeStripTexts::tr("Resuming “%1”. Waiting until what was opened is there.").arg(name)
               : ResumeStripTexts::tr("Resuming “%1”. Waiting for %2.").arg(name, progress.awaited);
}

void ResumeBanner::showProgress()
{
    const std::optional<ResumeProgress> &progress = m_resumes.resuming();
    if (!progress) {
        m_patience.stop();
        hide();
        return;
    }
    m_text->setText(sentence(*progress));
    setAccessibleName(m_text->text());
    m_stop->setEnabled(!progress->isStopping);
    if (isHidden() && !m_patience.isActive())
        m_patience.start();
}

void ResumeBanner::appear()
{
    show();
    QAccessibleEvent said(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&said);
}

void ResumeBanner::paintEvent(QPaintEvent *)
{
    drawBanner(this, Role::AccentSoft, Qt::TopEdge);
}

} // namespace ardeno
