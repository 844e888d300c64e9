// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"

class QMenu;
class QWidget;

namespace ardeno::ProjectActions {

// What can be done with a project, as the entries of a menu.
void fill(QMenu *menu, AppStore &store, const QUuid &projectID);

// Asks for another name on the window of this widget; not for the sample.
void rename(const QWidget *widget, AppStore &store, const QUuid &projectID);

} // namespace ardeno::ProjectActions
