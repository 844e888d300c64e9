// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CommandStore.h"
#include "app/TrayHost.h"
#include "platform/MakeDesktop.h"

namespace ardeno {

namespace {

// What "doctor --json" prints.
struct ReportedCapability {
    QString name = {};
    QString state = {}; // "available", "needs-consent", "unavailable".
    QString reason = {};

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"name", &ReportedCapability::name},
            Field{"state", &ReportedCapability::state},
            Field{"reason", &ReportedCapability::reason},
        };
    }
};

struct DoctorReport {
    QString session = {};
    QList<ReportedCapability> capabilities = {};

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"session", &DoctorReport::session},
            Field{"capabilities", &DoctorReport::capabilities},
        };
    }
};

QString stateText(Capability::State state)
{
    switch (state) {
    case Capability::State::Available:
        return "available";
    case Capability::State::NeedsConsent:
        return "needs-consent";
    case Capability::State::Unavailable:
        break;
    }
    return "unavailable";
}

ReportedCapability reported(const QString &name, const Capability &capability)
{
    return {name, stateText(capability.state), capability.reason};
}

DoctorReport examine(Desktop &desktop)
{
    DoctorReport report;
    report.session = desktop.session;
    report.capabilities = {
        reported("screenshots", desktop.screenCapture->availability()),
        reported("leaving apps out", desktop.screenCapture->exclusionAvailability()),
        reported("recording", desktop.screenRecorder->availability()),
        reported("application list", desktop.workspace->availability()),
        reported("window list", desktop.windowServer->availability()),
        reported("moving windows", desktop.windowMover->availability()),
    };
    QList<Browser> browsers = WorkspaceCapture::browsers(*desktop.tabSource);
    browsers.removeIf([&](const Browser &browser) { return desktop.roles.foreignBrowserIDs.contains(browser.id); });
    for (const Browser &browser : std::as_const(browsers))
        report.capabilities.append(reported("tabs of " + browser.name, desktop.tabSource->availability(browser.id)));
    report.capabilities += {
        reported("folders", desktop.fileBrowser->availability()),
        reported("documents", desktop.documents->availability()),
        reported("hot key", desktop.hotKeys->availability()),
        reported("tray", trayHost::availability()),
    };
    return report;
}

} // namespace

QCoro::Task<ExitStatus> runDoctor(CommandContext &context, const QCommandLineParser &parsed)
{
    Desktop desktop = makeDesktop();
    const DoctorReport result = examine(desktop);
    if (parsed.isSet("json")) {
        context.out.printJson(result);
        co_return ExitStatus::Done;
    }
    context.out.print(u"Session: %1\n"_qs.arg(result.session));
    for (const ReportedCapability &capability : result.capabilities) {
        const QString reason = capability.reason.isEmpty() ? QString() : u" – "_qs + capability.reason;
        context.out.print(u"%1  %2%3\n"_qs.arg(capability.name, -16).arg(capability.state, reason));
    }
    co_return ExitStatus::Done;
}

} // namespace ardeno
