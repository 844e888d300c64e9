// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/CaptureExclusions.h"
#include "store/ExclusionsFile.h"
#include "store/Operations.h"
#include "store/SessionRecorder.h"

namespace ardeno {

// What is left out of every capture: the rules, on disk and in force. Nothing is captured while they cannot be read.
class ExclusionRules final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ExclusionRules)

public:
    template <typename T>
    using Published = PublishedBy<T, ExclusionRules>;

    Published<CaptureExclusions> exclusions;
    Published<std::optional<QString>> exclusionsIssue; // Why they could not be read; nothing is captured then.

    ExclusionRules(Operations &operations, Messages &messages, Preferences &preferences, Desktop &desktop,
                   const SessionRecorder &recorder);

    // Reads them for the first time.
    void start();

    Outcome excludeApp(const SavedApp &app, Audience audience = Audience::Window);
    Outcome allowApp(const QString &id, Audience audience = Audience::Window);
    // Without an error where the text is no valid domain or address.
    Outcome excludeDomain(const QString &text, Audience audience = Audience::Window);
    Outcome allowDomain(const QString &domain, Audience audience = Audience::Window);
    // Reads what stands on disk now, as before each capture: why none must take place.
    std::optional<QString> exclusionsObstacle();
    // For exclusions that cannot be read (exclusionsIssue): keeps what there is aside and starts without any.
    Outcome startExclusionsOver(Audience audience = Audience::Window);

private:
    void takeOver();
    // Throws Failure.
    StoredExclusions storedExclusions();
    // Publishes what stands on disk now; absent, and why in exclusionsIssue, when that cannot be known.
    std::optional<StoredExclusions> readExclusions();
    // On disk first, in force second.
    Outcome changeExclusions(const std::function<void(CaptureExclusions &)> &change, Audience audience);
    // With what is known of the applications now. Throws Failure.
    void writeExclusions(const CaptureExclusions &rules, const QList<ApplicationMarks> &earlier);
    QList<ApplicationMarks> marksOf(const QList<SavedApp> &apps, const QList<ApplicationMarks> &earlier) const;
    // What is in force from now on, also for the desktop.
    void enforce(const StoredExclusions &stored);
    bool runsUnseen(const QString &appID) const;
    void keepMarks(const QList<ApplicationMarks> &marks);

    Operations &m_operations;
    Messages &m_messages;
    Preferences &m_preferences;
    Desktop &m_desktop;
    const SessionRecorder &m_recorder;
    ExclusionsFile m_exclusionsFile;
    QList<ApplicationMarks> m_formerMarks = {}; // Of applications that may be excluded again.
};

} // namespace ardeno
