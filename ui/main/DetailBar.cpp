// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/DetailBar.h"

#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/controls/Menu.h"
#include "ui/controls/Progress.h"
#include "ui/controls/Surfaces.h"
#include "ui/theme/Drawing.h"

#include <QPainter>

#include <algorithm>

namespace ardeno {

namespace {

class RecordingDot final : public QWidget {
public:
    RecordingDot() { setFixedSize(7, 7); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        Drawing::panel(painter, rect(), 3.5, themeColor(Role::Recording), Qt::transparent);
    }
};

} // namespace

QString elapsedText(qint64 seconds)
{
    const qint64 shown = std::max<qint64>(0, seconds);
    const auto two = [](qint64 number) { return QString("%1").arg(number, 2, 10, QChar('0')); };
    const QString rest = two(shown / 60 % 60) + ':' + two(shown % 60);
    return shown < 3600 ? rest : QString::number(shown / 3600) + ':' + rest;
}

DetailBar::DetailBar(const Library &library, const Navigation &navigation, const Operations &operations,
                     const SessionRecorder &recorder, std::function<void()> stop, std::function<void(QMenu *)> fillMenu,
                     QWidget *parent)
    : QWidget(parent),
      m_navigation(navigation),
      m_operations(operations),
      m_recorder(recorder),
      m_title(new LineLabel({}, TextStyle::BarTitle)),
      m_elapsed(makeClock(TextStyle::Body, Role::RecordingText)),
      m_stop(new Button(tr("Stop & save checkpoint"), Button::Kind::Recording)),
      m_recording(makeRecording()),
      m_progress(new Progress(tr("Working")))
{
    setFixedHeight(barHeight);
    auto *row = makeRow(12, this);
    row->setContentsMargins(24, 0, 35, 0);
    row->addWidget(m_title, 1);
    m_progress->hide();
    row->addWidget(m_progress);
    row->addWidget(m_recording);
    m_stop->setAccessibleName(m_stop->text()); // Else screen readers would take the "&" for a mark of a letter.
    connect(m_stop, &QAbstractButton::clicked, this, std::move(stop));
    Button *const more = Button::makeIcon("ellipsis", tr("More actions"));
    more->setFixedWidth(20);
    setMenu(more, std::move(fillMenu));
    row->addWidget(more);
    connect(&m_tick, &QTimer::timeout, this, [this] { showElapsed(); });
    m_subscriptions.watch([this] { showState(); }, library.projects, navigation.selectedProjectID, operations.busy,
                          recorder.recording, recorder.startedAt, recorder.recordingFailure);
}

QWidget *DetailBar::makeRecording()
{
    auto *block = new QWidget;
    auto *row = makeRow(7, block);
    row->addWidget(new RecordingDot);
    row->addWidget(m_elapsed);
    row->addSpacing(5);
    row->addWidget(m_stop);
    return block;
}

void DetailBar::showState()
{
    const Project *const project = m_navigation.selectedProject();
    m_title->setText(project ? project->name : tr("Projects"));
    m_recording->setVisible(m_recorder.recording());
    m_stop->setEnabled(!m_operations.busy());
    m_progress->setGoingOn(m_operations.busy());
    if (m_recorder.recording() && !m_recorder.recordingFailure())
        m_tick.start(1000);
    else
        m_tick.stop();
    showElapsed();
}

void DetailBar::showElapsed()
{
    if (m_recorder.recordingFailure()) {
        m_elapsed->setText(tr("Recording broken off"));
        return;
    }
    const std::optional<Date> start = m_recorder.startedAt();
    m_elapsed->setText(start ? elapsedText(static_cast<qint64>(Date::now().seconds - start->seconds)) : QString());
}

} // namespace ardeno
