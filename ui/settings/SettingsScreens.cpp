// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settings/SettingsScreens.h"

#include "store/AppStore.h"
#include "ui/edit/EditSheet.h"
#include "ui/settings/BugReportView.h"
#include "ui/settings/ExclusionsView.h"
#include "ui/settings/Links.h"
#include "ui/settings/PreferencesView.h"
#include "ui/viewer/ScreenshotViewer.h"

#include <memory>

namespace ardeno {

void addSettingsScreens(Screens *screens)
{
    screens->preferences = [](AppStore &store) { return new PreferencesView(store); };
    screens->exclusions = [](AppStore &store) { return new ExclusionsView(store); };
    screens->edit = [](AppStore &store, const Checkpoint &checkpoint) { return new EditSheet(store, checkpoint); };
    screens->reopenKept = [](AppStore &store, SheetHost &host) {
        EditSheet::reopenKept(store, host);
        BugReportView::reopenKept(store, host);
    };
    screens->viewScreenshot = [viewers = std::make_shared<ScreenshotViewers>()](AppStore &store, const QString &file) {
        viewers->show(file)->closeWithout(store);
    };
    screens->openUpdate = [](AppStore &store) {
        if (store.availableUpdate())
            Links::openUpdateURL(store.availableUpdate()->downloadURL);
    };
    screens->openNewsletter = [] { Links::openNewsletter(); };
}

} // namespace ardeno
