// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settings/SettingsScreens.h"

#include "store/AppStore.h"
#include "ui/ViewParts.h"
#include "ui/checkpoint/EditSheet.h"
#include "ui/settings/BugReportView.h"
#include "ui/settings/ExclusionsView.h"
#include "ui/settings/Links.h"
#include "ui/settings/PreferencesView.h"
#include "ui/viewer/ScreenshotViewer.h"

#include <memory>

namespace ardeno {

void addSettingsScreens(Screens *screens, AppStore &store)
{
    screens->preferences = [parts = ViewParts::ofPreferences(store)] { return new PreferencesView(parts); };
    screens->exclusions = [&store] {
        return new ExclusionsView(store.rules, store.applications, store.sheets, store.recorder);
    };
    screens->edit = [&store](const Checkpoint &checkpoint) {
        return new EditSheet({store.library, store.editing, store.messages, store.keptForms}, checkpoint);
    };
    screens->reopenKept = [&store](SheetHost &host) {
        EditSheet::reopenKept({store.library, store.editing, store.messages, store.keptForms}, store.navigation, host);
        BugReportView::reopenKept(store.applications, store.keptForms, host);
    };
    screens->viewScreenshot = [viewers = std::make_shared<ScreenshotViewers>(), &store](const QString &file) {
        viewers->show(file)->closeWithout(store.library, store.media);
    };
    screens->openUpdate = [&updates = store.updates] {
        if (updates.availableUpdate())
            Links::openUpdateURL(updates.availableUpdate()->downloadURL);
    };
    screens->openNewsletter = [] { Links::openNewsletter(); };
}

} // namespace ardeno
