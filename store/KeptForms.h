// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/PreferenceKeys.h"
#include "store/PreferenceMirror.h"

namespace ardeno {

// What stood in open forms when the program was ended, as the forms write it; empty: in none.
class KeptForms final {
public:
    PublishedBy<QString, KeptForms> details; // Of a checkpoint.
    PublishedBy<QString, KeptForms> report;  // Of a bug.

    explicit KeptForms(Preferences &preferences)
        : details(preferences.value(keys::keptDetails).value_or(QString())),
          report(preferences.value(keys::keptReport).value_or(QString())),
          m_mirrors{mirror(details, preferences, keys::keptDetails), mirror(report, preferences, keys::keptReport)}
    {
    }

    void keepDetails(const QString &text) { details.set(text); }

    void keepReport(const QString &text) { report.set(text); }

private:
    QPropertyNotifier m_mirrors[2];
};

} // namespace ardeno
