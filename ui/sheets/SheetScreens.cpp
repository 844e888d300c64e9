// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/SheetScreens.h"

#include "store/AppStore.h"
#include "ui/ViewParts.h"
#include "ui/items/WorkspaceItemsView.h"
#include "ui/sheets/CaptureSheet.h"
#include "ui/sheets/RestoreSheet.h"

namespace ardeno {

void addSheetScreens(Screens &screens, AppStore &store)
{
    screens.capture = [parts = ViewParts::ofCapture(store)] { return new CaptureSheet(parts); };
    screens.restore = [&store] {
        return new RestoreSheet(store.resumes, store.applications, store.sheets, store.operations,
                                *store.navigation.selected());
    };
    screens.workspaceItems = [parts = ViewParts::ofItems(store)](const QUuid &id) {
        return new WorkspaceItemsView(parts, id);
    };
    screens.stopRecording = [&store] { store.sessions.stop(); };
}

} // namespace ardeno
