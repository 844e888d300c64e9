// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/ProjectText.h"

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

// What has no name is known by its time.
QString orMoment(const QString &name, const Checkpoint &checkpoint)
{
    return name.trimmed().isEmpty() ? DateText::mediumDateShortTime(checkpoint.createdAt) : name;
}

} // namespace

QString ProjectText::checkpointCount(qsizetype count)
{
    return ProjectTexts::tr("%n checkpoints", "", static_cast<int>(count));
}

QString ProjectText::overview(const QList<Project> &available)
{
    const auto blocked = static_cast<int>(std::count_if(
        available.begin(), available.end(), [](const Project &project) { return project.blockedReason.has_value(); }));
    const auto active = static_cast<int>(available.size()) - blocked;
    return ProjectTexts::tr("%n active", "", active) + u" · "_qs + ProjectTexts::tr("%n blocked", "", blocked);
}

QString ProjectText::firstStep(const Checkpoint &checkpoint)
{
    Checkpoint untitled = checkpoint;
    untitled.title.clear();
    return untitled.displayName();
}

QString ProjectText::title(const Checkpoint &checkpoint, const QString &projectName)
{
    return checkpoint.title == projectName ? ProjectTexts::tr("First checkpoint")
                                           : orMoment(checkpoint.title, checkpoint);
}

QString ProjectText::timelineTitle(const Checkpoint &checkpoint, const QString &projectName)
{
    const QString name = checkpoint.displayName();
    return name == projectName && name == checkpoint.title ? ProjectTexts::tr("First checkpoint")
                                                           : orMoment(name, checkpoint);
}

QString ProjectText::resumeCaption(const Checkpoint &checkpoint)
{
    const QStringList parts = {ProjectTexts::tr("%n apps", "", static_cast<int>(checkpoint.apps.size())),
                               ProjectTexts::tr("%n pages", "", static_cast<int>(checkpoint.tabs.size())),
                               ProjectTexts::tr("Choose what to reopen")};
    return parts.join(u" · "_qs);
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
