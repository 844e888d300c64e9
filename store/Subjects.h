// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <QString>

// What messages are about: a success takes back what was said of a failure in the same matter.
namespace ardeno::subjects {

inline constexpr const char *library = "library"; // That it could be read.
inline constexpr const char *exclusions = "exclusions";
inline constexpr const char *capture = "capture";
inline constexpr const char *resume = "resume";
inline constexpr const char *recording = "recording";
inline constexpr const char *whileRecording = "while recording"; // What has to wait for the end of the session.

// Of one record, in one respect.
inline QString about(const char *what, const QUuid &id)
{
    return QString::fromLatin1(what) + ' ' + uuidText(id);
}

} // namespace ardeno::subjects
