// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/WorkspaceRecords.h"

#include "support/Text.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>
#include <QStringView>

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

bool isLineBreak(QChar character)
{
    const char16_t code = character.unicode();
    return (code >= 0x0A && code <= 0x0D) || code == 0x85 || code == 0x2028 || code == 0x2029;
}

// The first line that holds more than white space, trimmed; empty when there is none.
QStringView firstLine(QStringView text)
{
    while (!text.isEmpty()) {
        const qsizetype end = std::find_if(text.begin(), text.end(), isLineBreak) - text.begin();
        const QStringView line = text.first(end).trimmed();
        if (!line.isEmpty())
            return line;
        text = text.sliced(std::min(end + 1, text.size()));
    }
    return {};
}

// How many characters of a trimmed line are a list marker: a bullet, or a number followed by "." or ")".
qsizetype markerLength(QStringView line)
{
    if (QStringView(u"•*−-").contains(line.front()))
        return 1;
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    const qsizetype digits = std::find_if_not(line.begin(), line.end(), isDigit) - line.begin();
    const bool isNumber = digits > 0 && digits < line.size() && (line[digits] == u'.' || line[digits] == u')');
    return isNumber ? digits + 1 : 0;
}

QStringView withoutMarker(QStringView line)
{
    if (line.isEmpty())
        return line;
    const QStringView rest = line.sliced(markerLength(line));
    // "3.5 percent" and "-x" start with no marker, "12)" alone is nothing but one.
    return rest.isEmpty() || rest.front().isSpace() ? rest.trimmed() : line;
}

using ::qHash; // Which the hashes of the records would hide.

template <typename T>
size_t fieldHash(const T &value, size_t seed)
{
    return qHash(value, seed);
}

size_t fieldHash(const Date &date, size_t seed)
{
    return qHash(date.seconds, seed);
}

template <typename T>
size_t fieldHash(const std::optional<T> &value, size_t seed)
{
    return value ? fieldHash(*value, seed + 1) : seed;
}

template <JsonRecord R>
size_t recordHash(const R &record, size_t seed)
{
    const auto combine = [&](auto... field) { ((seed = fieldHash(record.*field.member, seed * 31)), ...); };
    std::apply(combine, R::fields());
    return seed;
}

// Finds or makes the project of a checkpoint that has none, by name.
class ProjectAssignment final {
public:
    explicit ProjectAssignment(QList<Project> &projects) : m_projects(projects)
    {
        m_ids.reserve(projects.size());
        for (const Project &project : std::as_const(projects))
            m_ids.insert(project.id);
    }

    bool isAssigned(const Checkpoint &checkpoint) const
    {
        return checkpoint.projectID && m_ids.contains(*checkpoint.projectID);
    }

    QUuid projectFor(const Checkpoint &checkpoint)
    {
        learnNames();
        const QString title = checkpoint.title.trimmed();
        const QString name = title.isEmpty() ? QString("Imported project") : title;
        const QString key = Text::folded(name);
        if (const auto known = m_idsByName.constFind(key); known != m_idsByName.constEnd())
            return *known;
        const Project project{.name = name, .createdAt = checkpoint.createdAt};
        m_projects.append(project);
        m_ids.insert(project.id);
        m_idsByName.insert(key, project.id);
        return project.id;
    }

private:
    // Folding every name is only paid for when a checkpoint needs a project.
    void learnNames()
    {
        if (std::exchange(m_knowsNames, true))
            return;
        // Backwards, because the first of equal names counts.
        for (auto project = m_projects.crbegin(); project != m_projects.crend(); ++project)
            m_idsByName.insert(Text::folded(project->name), project->id);
    }

    QList<Project> &m_projects;
    QSet<QUuid> m_ids;
    QHash<QString, QUuid> m_idsByName;
    bool m_knowsNames = false;
};

} // namespace

QString Project::blockerDescription() const
{
    const QString reason = blockedReason.value_or(QString()).trimmed();
    return reason.isEmpty() ? QCoreApplication::translate("ardeno::Project", "No reason added yet.") : reason;
}

size_t qHash(const SavedApp &app, size_t seed)
{
    return recordHash(app, seed);
}

size_t qHash(const SavedTab &tab, size_t seed)
{
    return recordHash(tab, seed);
}

std::optional<WebAddress> SavedTab::safeURL() const
{
    return WebAddress::parse(url);
}

QString Checkpoint::displayName() const
{
    const QStringView name = withoutMarker(firstLine(nextStep));
    return name.isEmpty() ? title : name.toString();
}

void Checkpoint::mergeLegacyDecision()
{
    if (!QStringView(decision).trimmed().isEmpty())
        objective = QStringView(objective).trimmed().isEmpty() ? decision : objective + "\n\n" + decision;
    decision.clear();
}

void WorkspaceLibrary::assignMissingProjects()
{
    ProjectAssignment assignment(projects);
    for (qsizetype i = 0; i < checkpoints.size(); ++i) {
        // A list that is already in order stays shared with its other owners.
        const Checkpoint &checkpoint = std::as_const(checkpoints)[i];
        if (!checkpoint.decision.isEmpty())
            checkpoints[i].mergeLegacyDecision();
        if (!assignment.isAssigned(std::as_const(checkpoints)[i]))
            checkpoints[i].projectID = assignment.projectFor(std::as_const(checkpoints)[i]);
    }
}

QString uuidText(const QUuid &id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

} // namespace ardeno
