// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BusClient.h"
#include "app/Caller.h"
#include "app/StoreAccess.h"
#include "platform/MakeDesktop.h"

namespace ardeno {

ExitStatus runQuickSave(const QCommandLineParser &)
{
    try {
        if (ApplicationStore::current()) {
            if (!ApplicationStore::actions().quickSave)
                throw notAvailable("Ardeno runs without a display, so it has no quick-save panel.");
            Caller::begin();
            ApplicationStore::actions().quickSave();
            return ExitStatus::Done;
        }
        if (!isDisplayReachable())
            throw notAvailable("There is no display to open the quick-save panel on.");
        // The panel belongs to an application that stays.
        BusClient::startApplication();
        return BusClient::run({"quick-save"}).value_or(ExitStatus::Failed);
    } catch (const Failure &failure) {
        return report(failure);
    }
}

} // namespace ardeno
