// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ViewParts.h"

#include "store/AppStore.h"

namespace ardeno {

ProjectParts ViewParts::ofProjects(AppStore &store)
{
    return {store.library, store.navigation, store.projects, store.sheets};
}

CheckpointListParts ViewParts::ofCheckpointLists(AppStore &store)
{
    return {store.library, store.navigation, store.deletion, store.media};
}

CheckpointParts ViewParts::ofCheckpoint(AppStore &store)
{
    const ScreenshotParts picture{store.library, store.applications, store.messages,
                                  store.media,   store.screenshots,  store.removals};
    return {store.library, store.navigation, store.applications, store.messages,
            store.sheets,  store.editing,    store.resumes,      picture};
}

ItemParts ViewParts::ofItems(AppStore &store)
{
    return {store.library,      store.operations, store.messages, store.rules,
            store.applications, store.workspace,  store.removals};
}

CaptureParts ViewParts::ofCapture(AppStore &store)
{
    return {store.library, store.operations, store.messages,     store.drafts,  store.sheets,
            store.setup,   store.form,       store.screenAccess, store.recorder};
}

PreferenceParts ViewParts::ofPreferences(AppStore &store)
{
    return {store.library,  store.navigation, store.drafts,       store.sheets,
            store.shortcut, store.updates,    store.applications, store.keptForms};
}

} // namespace ardeno
