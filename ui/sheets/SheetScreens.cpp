// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/SheetScreens.h"

#include "store/AppStore.h"
#include "ui/items/WorkspaceItemsView.h"
#include "ui/sheets/CaptureSheet.h"
#include "ui/sheets/RestoreSheet.h"

namespace ardeno {

void addSheetScreens(Screens &screens)
{
    screens.capture = [](AppStore &store) { return new CaptureSheet(store); };
    screens.restore = [](AppStore &store) { return new RestoreSheet(store, *store.navigation.selected()); };
    screens.workspaceItems = [](AppStore &store, const QUuid &id) { return new WorkspaceItemsView(store, id); };
    screens.stopRecording = [](AppStore &store) { store.sessions.stop(); };
}

} // namespace ardeno
