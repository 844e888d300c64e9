// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/Endpoints.h"

#include <QString>
#include <QUrl>

#include <functional>

namespace ardeno {

// What the user wrote.
struct BugReportDraft {
    QString title = {};
    QString details = {};
    QString steps = {}; // May stay empty.

    bool operator==(const BugReportDraft &) const = default;

    bool canSubmit() const;
};

// Turns a draft into a message that its user sends, or does not. Nothing but the draft, the version, the build and the
// operating system is in it.
namespace BugReportComposer {

// For questions: a "mailto:" address with a subject.
QUrl contactURL();

QString body(const BugReportDraft &draft, const ApplicationBundle &bundle, const QString &operatingSystem);

// A version followed by a build in parentheses.
QString operatingSystemVersion();

// Both are false, and do nothing, for a draft that cannot be submitted; else they say what came of it.
bool openMail(const BugReportDraft &draft, const std::function<bool(const QUrl &)> &open);
bool copy(const BugReportDraft &draft, const std::function<bool(const QString &)> &toClipboard);

} // namespace BugReportComposer

} // namespace ardeno
