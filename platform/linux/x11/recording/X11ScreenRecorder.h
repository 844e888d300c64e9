// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ScreenRecorder.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/x11/pictures/X11RedirectionKeeper.h"

#include <memory>

namespace ardeno {

// Videos of an X11 desktop, composed like the pictures. A thread of its own does everything.
class X11ScreenRecorder final : public ScreenRecorder {
public:
    // The identifier of this program, whose windows are never shown. The entries are used on the main thread.
    X11ScreenRecorder(QString ownAppID, std::shared_ptr<X11RedirectionKeeper> keeper,
                      std::shared_ptr<DesktopEntries> entries = std::make_shared<DesktopEntries>());

    Capability availability() const override;
    RecordableContent content() override;
    QCoro::Task<std::unique_ptr<RecordingStream>> start(RecordingRequest request, RecordingEvents events) override;

private:
    QString m_ownAppID;
    std::shared_ptr<X11RedirectionKeeper> m_keeper;
    std::shared_ptr<DesktopEntries> m_entries;
};

} // namespace ardeno
