// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BusClient.h"
#include "app/Caller.h"
#include "app/Command.h"
#include "desktop/Capability.h"
#include "platform/MakeDesktop.h"

namespace ardeno {

QCoro::Task<ExitStatus> runQuickSave(CommandContext &context, const QCommandLineParser &)
{
    if (context.host) {
        if (!context.host->quickSave)
            throw notAvailable("Ardeno runs without a display, so it has no quick-save panel.");
        if (context.caller)
            co_await context.caller->begin();
        context.host->quickSave();
        co_return ExitStatus::Done;
    }
    if (!isDisplayReachable())
        throw notAvailable("There is no display to open the quick-save panel on.");
    // The panel belongs to an application that stays.
    BusClient::startApplication();
    const QStringList command{"quick-save"};
    const std::optional<ExitStatus> status = co_await BusClient::run(context.out, command);
    co_return status.value_or(ExitStatus::Failed);
}

} // namespace ardeno
