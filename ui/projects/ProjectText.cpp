// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/ProjectText.h"

#include "support/Text.h"

#include <QCoreApplication>

#include <algorithm>

namespace ardeno {

namespace {

struct ProjectTexts final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ProjectTexts)
};

enum class Place { Alone, InSentence };

QString momentText(Date date, Date now, Place place)
{
    const QDateTime moment = date.toDateTime().toLocalTime();
    const qint64 days = moment.date().daysTo(now.toDateTime().toLocalTime().date());
    if (!moment.isValid() || days < 0 || days > 1)
        return DateText::mediumDateShortTime(date);
    const QString alone = days == 0 ? ProjectTexts::tr("Today, %1") : ProjectTexts::tr("Yesterday, %1");
    const QString inside = days == 0 ? ProjectTexts::tr("today, %1") : ProjectTexts::tr("yesterday, %1");
    return (place == Place::Alone ? alone : inside).arg(DateText::shortTime(date));
}

} // namespace

QString ProjectText::checkpointCount(qsizetype count)
{
    return Text::counted(count, ProjectTexts::tr("checkpoint"), ProjectTexts::tr("checkpoints"));
}

QString ProjectText::overview(const QList<Project> &available)
{
    const auto blocked = std::count_if(available.begin(), available.end(),
                                       [](const Project &project) { return project.blockedReason.has_value(); });
    return ProjectTexts::tr("%1 active · %2 blocked").arg(available.size() - blocked).arg(blocked);
}

QString ProjectText::firstStep(const Checkpoint &checkpoint)
{
    Checkpoint untitled = checkpoint;
    untitled.title.clear();
    return untitled.displayName();
}

QString ProjectText::title(const Checkpoint &checkpoint, const QString &projectName)
{
    return checkpoint.title == projectName ? ProjectTexts::tr("First checkpoint") : checkpoint.title;
}

QString ProjectText::timelineTitle(const Checkpoint &checkpoint, const QString &projectName)
{
    const QString name = checkpoint.displayName();
    return name == projectName && name == checkpoint.title ? ProjectTexts::tr("First checkpoint") : name;
}

QString ProjectText::resumeCaption(const Checkpoint &checkpoint)
{
    const qsizetype pages = checkpoint.tabs.size();
    return ProjectTexts::tr("%1 apps · %2 · Choose what to reopen")
        .arg(checkpoint.apps.size())
        .arg(Text::counted(pages, ProjectTexts::tr("page"), ProjectTexts::tr("pages")));
}

QString ProjectText::moment(Date date, Date now)
{
    return momentText(date, now, Place::Alone);
}

QString ProjectText::momentInSentence(Date date, Date now)
{
    return momentText(date, now, Place::InSentence);
}

} // namespace ardeno
