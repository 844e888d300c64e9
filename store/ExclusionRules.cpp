// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/ExclusionRules.h"

#include "store/PreferenceKeys.h"
#include "store/Subjects.h"
#include "json/Json.h"

#include <algorithm>

namespace ardeno {

namespace {

// The first of an application's; none when nothing is known of it.
QList<ApplicationMarks> knownMarks(const QString &appID, const QList<ApplicationMarks> &among)
{
    const auto found =
        std::find_if(among.begin(), among.end(), [&](const ApplicationMarks &known) { return known.id == appID; });
    return found == among.end() ? QList<ApplicationMarks>() : QList{*found};
}

} // namespace

ExclusionRules::ExclusionRules(Operations &operations, Messages &messages, Preferences &preferences, Desktop &desktop,
                               const SessionRecorder &recorder)
    : m_operations(operations),
      m_messages(messages),
      m_preferences(preferences),
      m_desktop(desktop),
      m_recorder(recorder),
      m_exclusionsFile(preferences.folder())
{
}

void ExclusionRules::start()
{
    takeOver();
    if (!readExclusions())
        m_messages.report(*exclusionsIssue(), subjects::exclusions);
}

// Where they stood before they had a file of their own: they go there with the first start that finds them.
void ExclusionRules::takeOver()
{
    const bool isStored = m_preferences.contains(keys::captureExclusions.name);
    try {
        const bool areKnown = isStored || (m_preferences.wereRead() && !m_preferences.mayBeMissing());
        if (!m_exclusionsFile.exists() && areKnown)
            m_exclusionsFile.create(isStored ? m_preferences.value(keys::captureExclusions).value_or(QByteArray())
                                             : json::encode(CaptureExclusions()));
        if (isStored && m_exclusionsFile.exists())
            m_preferences.remove(keys::captureExclusions);
    } catch (const Failure &) {
        // Where nothing can be written they are read from where they are.
    }
}

StoredExclusions ExclusionRules::storedExclusions()
{
    if (const std::optional<StoredExclusions> stored = m_exclusionsFile.read())
        return *stored;
    if (m_preferences.contains(keys::captureExclusions.name))
        return json::decode<StoredExclusions>(m_preferences.value(keys::captureExclusions).value_or(QByteArray()));
    if (m_preferences.mayBeMissing())
        throw Failure("Exclusions", 3, tr("They stood in settings that could not be read."));
    return {};
}

std::optional<StoredExclusions> ExclusionRules::readExclusions()
{
    try {
        const StoredExclusions stored = storedExclusions();
        enforce(stored);
        exclusionsIssue.set(std::nullopt);
        m_messages.resolve(subjects::exclusions); // That they could not be.
        return stored;
    } catch (const Failure &failure) {
        exclusionsIssue.set(
            tr("Nothing is captured, because your capture exclusions could not be read: %1 Mend the file in %2, or "
               "start over under “Capture exclusions” in the settings (in a terminal: %3). What could not be read is "
               "kept.")
                .arg(failure.description(), m_preferences.folder(), "ardeno exclusions --start-over"));
        return std::nullopt;
    }
}

void ExclusionRules::enforce(const StoredExclusions &stored)
{
    const CaptureExclusions rules = stored.rules();
    m_desktop.workspace->setExcluded(rules.appIDs(), stored.marks.value_or(QList<ApplicationMarks>()));
    exclusions.set(rules);
}

QList<ApplicationMarks> ExclusionRules::marksOf(const QList<SavedApp> &apps,
                                                const QList<ApplicationMarks> &earlier) const
{
    QList<ApplicationMarks> marks;
    for (const SavedApp &app : apps) {
        if (const auto now = m_desktop.workspace->marks(app.id))
            marks.append(*now);
        else
            marks += knownMarks(app.id, earlier + m_formerMarks);
    }
    return marks;
}

// Who is excluded again need not be installed any more.
void ExclusionRules::keepMarks(const QList<ApplicationMarks> &marks)
{
    for (const ApplicationMarks &known : marks) {
        m_formerMarks.removeIf([&](const ApplicationMarks &other) { return other.id == known.id; });
        m_formerMarks.append(known);
    }
}

void ExclusionRules::writeExclusions(const CaptureExclusions &rules, const QList<ApplicationMarks> &earlier)
{
    keepMarks(earlier);
    const StoredExclusions stored{rules.apps, rules.domains, marksOf(rules.apps, earlier)};
    m_exclusionsFile.write(stored);
    enforce(stored);
}

std::optional<QString> ExclusionRules::exclusionsObstacle()
{
    const std::optional<StoredExclusions> stored = readExclusions();
    if (!stored)
        return exclusionsIssue();
    const QList<ApplicationMarks> earlier = stored->marks.value_or(QList<ApplicationMarks>());
    try {
        if (marksOf(stored->apps, earlier) != earlier)
            writeExclusions(stored->rules(), earlier);
    } catch (const Failure &) {
        // The rules hold as they are; what is new of the applications is written before the next capture.
    }
    return std::nullopt;
}

Outcome ExclusionRules::excludeApp(const SavedApp &app, Audience audience)
{
    const auto exclude = [&](CaptureExclusions &changed) {
        changed.apps.removeIf([&](const SavedApp &existing) { return existing.id == app.id; });
        changed.apps.append(app);
    };
    Outcome outcome = changeExclusions(exclude, audience);
    if (!outcome || !runsUnseen(app.id))
        return outcome;
    outcome.remarks.append(
        {.sentence = tr("%1 is running, but none of the windows could be recognised as its own. Look "
                        "at a picture before you rely on its being left out.")
                         .arg(app.name),
         .subject = subjects::exclusions});
    return m_operations.concluded(std::move(outcome), audience);
}

// Its windows may be other ones than anybody can tell, or it has none now.
bool ExclusionRules::runsUnseen(const QString &appID) const
{
    Workspace &workspace = *m_desktop.workspace;
    if (!workspace.isProgramRunning(appID))
        return false;
    const QList<RunningApplication> running = workspace.runningApplications();
    return std::none_of(running.begin(), running.end(),
                        [&](const RunningApplication &application) { return application.id == appID; });
}

Outcome ExclusionRules::allowApp(const QString &id, Audience audience)
{
    const auto allow = [&](CaptureExclusions &changed) {
        changed.apps.removeIf([&](const SavedApp &existing) { return existing.id == id; });
    };
    return changeExclusions(allow, audience);
}

Outcome ExclusionRules::excludeDomain(const QString &text, Audience audience)
{
    const std::optional<QString> domain = CaptureExclusions::domainFrom(text);
    if (!domain)
        return {};
    const auto exclude = [&](CaptureExclusions &changed) {
        if (!changed.domains.contains(*domain))
            changed.domains.append(*domain);
    };
    return changeExclusions(exclude, audience);
}

Outcome ExclusionRules::allowDomain(const QString &domain, Audience audience)
{
    return changeExclusions([&](CaptureExclusions &changed) { changed.domains.removeAll(domain); }, audience);
}

Outcome ExclusionRules::startExclusionsOver(Audience audience)
{
    Outcome outcome{.subject = subjects::exclusions};
    if (readExclusions()) {
        outcome.fail(tr("Your capture exclusions can be read. They stay as they are."));
        return m_operations.concluded(std::move(outcome), audience);
    }
    try {
        const std::optional<QString> kept = m_exclusionsFile.moveAside();
        m_exclusionsFile.write({});
        m_preferences.remove(keys::captureExclusions);
        outcome.isDone = readExclusions().has_value();
        outcome.notice = tr("Nothing is left out of captures any more. Set your exclusions again.");
        if (kept)
            outcome.remarks += {.sentence = tr("What could not be read of your exclusions is kept as %1.").arg(*kept),
                                .subject = "kept exclusions",
                                .file = kept};
    } catch (const Failure &failure) {
        outcome.fail(tr("Could not save the exclusions: ") + failure.description());
    }
    return m_operations.concluded(std::move(outcome), audience);
}

Outcome ExclusionRules::changeExclusions(const std::function<void(CaptureExclusions &)> &change, Audience audience)
{
    Outcome outcome{.subject = subjects::exclusions};
    if (m_recorder.active()) {
        outcome.subject = subjects::whileRecording;
        outcome.fail(tr("Finish the recording before changing exclusions."));
        return m_operations.concluded(std::move(outcome), audience);
    }
    const std::optional<StoredExclusions> stored = readExclusions();
    if (!stored) {
        outcome.fail(*exclusionsIssue());
        return m_operations.concluded(std::move(outcome), audience);
    }
    CaptureExclusions changed = stored->rules();
    change(changed);
    try {
        writeExclusions(changed, stored->marks.value_or(QList<ApplicationMarks>()));
        outcome.isDone = true;
    } catch (const Failure &failure) {
        outcome.fail(tr("Could not save the exclusions: ") + failure.description());
    }
    return m_operations.concluded(std::move(outcome), audience);
}

} // namespace ardeno
