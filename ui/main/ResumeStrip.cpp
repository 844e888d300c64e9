// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/ResumeStrip.h"

#include "ui/controls/Button.h"
#include "ui/controls/Ground.h"
#include "ui/controls/Label.h"
#include "ui/controls/Progress.h"
#include "ui/main/Strips.h"

#include <QAccessible>
#include <QCoreApplication>

namespace ardeno {

namespace {

struct ResumeStripTexts final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ResumeStrip)
};

} // namespace

ResumeStrip::ResumeStrip(ResumeFlow &resumes, const Library &library, QWidget *parent)
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
    m_observations.watch([this] { showProgress(); }, resumes.resuming);
}

void ResumeStrip::setPatience(std::chrono::milliseconds patience)
{
    m_patience.setInterval(patience);
}

QString ResumeStrip::sentence(const ResumeProgress &progress) const
{
    if (progress.isStopping)
        return ResumeStripTexts::tr("Stopping. What has begun still comes to its end.");
    const Checkpoint *const checkpoint = m_library.checkpoint(progress.checkpointID);
    const QString name = checkpoint ? checkpoint->displayName() : QString();
    return progress.awaited.isEmpty()
               ? ResumeStripTexts::tr("Resuming “%1”. Waiting until what was opened is there.").arg(name)
               : ResumeStripTexts::tr("Resuming “%1”. Waiting for %2.").arg(name, progress.awaited);
}

void ResumeStrip::showProgress()
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

void ResumeStrip::appear()
{
    show();
    QAccessibleEvent said(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&said);
}

void ResumeStrip::paintEvent(QPaintEvent *)
{
    drawStrip(this, Role::AccentSoft, Qt::TopEdge);
}

} // namespace ardeno
