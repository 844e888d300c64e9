// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"
#include "model/WorkspaceRecords.h"

#include <QList>
#include <QSet>
#include <QString>

namespace ardeno {

// What a checkpoint keeps of the running workspace.
namespace WorkspaceCapture {

// The applications that a user sees running, one entry each, by name. Without this program and the excluded ones.
QList<SavedApp> applications(Workspace &workspace, const DesktopRoles &roles, const QSet<QString> &excludedAppIDs);

// What a checkpoint of these applications cannot do or does not hold, for its note: each sentence begins with a space.
QString limits(const QList<SavedApp> &apps);

} // namespace WorkspaceCapture

} // namespace ardeno
