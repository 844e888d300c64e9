// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/recording/X11ScreenRecorder.h"

#include "media/VideoWriter.h"
#include "platform/linux/x11/pictures/X11Extensions.h"
#include "platform/linux/x11/pictures/X11TopLevels.h"
#include "platform/linux/x11/recording/X11Recording.h"
#include "platform/linux/x11/windows/WindowOwners.h"
#include "platform/linux/x11/windows/WindowTree.h"
#include "platform/linux/x11/windows/X11Displays.h"
#include "support/Failure.h"
#include "support/InWorker.h"

#include <QCoreApplication>

#include <utility>

namespace ardeno {

X11ScreenRecorder::X11ScreenRecorder(QString ownAppID, std::shared_ptr<X11RedirectionKeeper> keeper,
                                     std::shared_ptr<DesktopEntries> entries)
    : m_ownAppID(std::move(ownAppID)), m_keeper(std::move(keeper)), m_entries(std::move(entries))
{
}

Capability X11ScreenRecorder::availability() const
{
    try {
        const X11Connection connection(m_keeper->displayName());
        if (connection.isXWayland())
            return Capability::unavailable("This is a Wayland session: the X server does not show the screen.");
        if (!X11Extensions::of(connection).hasRender)
            return Capability::unavailable("The screen cannot be recorded: the X server lacks Render.");
    } catch (const Failure &failure) {
        return Capability::unavailable(failure.description());
    }
    const QString problem = VideoWriter::reasonUnavailable();
    return problem.isEmpty() ? Capability::available() : Capability::unavailable(problem);
}

RecordableContent X11ScreenRecorder::content()
{
    const X11Connection connection(m_keeper->displayName());
    RecordableContent content;
    for (const Display &display : readDisplays(connection)) {
        content.displays.append({display.id, display.bounds});
        if (display.isMain)
            content.mainDisplayID = display.id;
    }
    const auto owners = WindowOwners(connection, *m_entries).owners(WindowTree::clients(connection));
    for (const WindowOwner &owner : owners) {
        const QString id = owner.applicationID.value_or(QString());
        if (id != m_ownAppID && owner.processID != qint32(QCoreApplication::applicationPid()))
            content.applicationIDs.append(id);
    }
    requireAlive(connection);
    return content;
}

QCoro::Task<std::unique_ptr<RecordingStream>> X11ScreenRecorder::start(RecordingRequest request, RecordingEvents events)
{
    const auto recording = std::make_shared<X11Recording>(request, m_ownAppID, m_keeper, m_entries->remembered());
    const auto begin = [recording] { recording->begin(); };
    co_await inWorker(begin);
    std::unique_ptr<RecordingStream> stream = std::make_unique<X11RecordingStream>(recording, std::move(events));
    co_return stream;
}

} // namespace ardeno
