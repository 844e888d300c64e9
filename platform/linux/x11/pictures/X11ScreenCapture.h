// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ScreenCapture.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/x11/pictures/X11RedirectionKeeper.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace ardeno {

// Pictures of an X11 desktop. The X server composes and scales them; a worker thread waits for it.
class X11ScreenCapture final : public ScreenCapture {
public:
    // The identifier of this program, whose windows are never shown.
    explicit X11ScreenCapture(const QString &ownAppID, const QByteArray &displayName = qgetenv("DISPLAY"));
    X11ScreenCapture(const QString &ownAppID, std::shared_ptr<X11RedirectionKeeper> keeper,
                     std::shared_ptr<RememberedTraces> remembered = std::make_shared<RememberedTraces>());
    ~X11ScreenCapture() override;

    Capability availability() const override;
    Capability exclusionAvailability() const override;
    QList<CaptureDisplay> displays() override;
    // From then on every window is drawn into a pixmap of its own, until the set is empty.
    void prepareExclusion(const QSet<QString> &appIDs) override;
    QCoro::Task<Canvas> compose(CanvasRequest request) override;

private:
    struct Worker;

    // Shared with the pictures that are being taken.
    std::shared_ptr<Worker> m_worker;
};

} // namespace ardeno
