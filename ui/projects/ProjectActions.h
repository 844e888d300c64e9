// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/projects/ProjectParts.h"

class QMenu;
class QWidget;

namespace ardeno::ProjectActions {

// What can be done with a project, as the entries of a menu.
void fill(QMenu *menu, const ProjectParts &parts, const QUuid &projectID);

// Asks for another name on the window of this widget; not for the sample.
void rename(const QWidget *widget, const ProjectParts &parts, const QUuid &projectID);

} // namespace ardeno::ProjectActions
