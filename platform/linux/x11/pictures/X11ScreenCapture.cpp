// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11ScreenCapture.h"

#include "platform/linux/x11/pictures/X11Picture.h"
#include "platform/linux/x11/windows/X11Displays.h"
#include "support/Failure.h"
#include "support/InWorker.h"

#include <mutex>
#include <utility>

namespace ardeno {

// What pictures need; each is taken with a connection of its own, on whatever thread it is taken.
struct X11ScreenCapture::Worker {
    Worker(QString id, std::shared_ptr<X11RedirectionKeeper> redirections, std::shared_ptr<RememberedTraces> remembered)
        : ownAppID(std::move(id)),
          keeper(std::move(redirections)),
          displayName(keeper->displayName()),
          entries(std::move(remembered))
    {
    }

    Canvas picture(const CanvasRequest &request);

    const QString ownAppID;
    const std::shared_ptr<X11RedirectionKeeper> keeper;
    const QByteArray displayName;
    std::mutex mutex = {}; // Of what follows: one picture at a time.
    DesktopEntries entries;
};

Canvas X11ScreenCapture::Worker::picture(const CanvasRequest &request)
{
    const std::scoped_lock lock(mutex);
    X11Picture picture(request, {ownAppID, request.excludedAppIDs}, entries);
    if (const std::shared_ptr<X11RedirectionHold> held = keeper->present()) {
        const X11RedirectionHold::Use use = held->use();
        auto canvas = picture.ofScreen(use.redirection);
        if (!canvas)
            canvas = picture.ofWindows(use.redirection);
        use.redirection.processEvents(); // What was read meanwhile does not wake the hold's own thread.
        return std::move(*canvas);
    }
    X11Connection connection(displayName);
    if (auto canvas = picture.ofScreen(connection, X11Extensions::of(connection)))
        return std::move(*canvas);
    X11Redirection redirection(std::move(connection));
    return picture.ofWindows(redirection);
}

X11ScreenCapture::X11ScreenCapture(const QString &ownAppID, const QByteArray &displayName)
    : X11ScreenCapture(ownAppID, std::make_shared<X11RedirectionKeeper>(displayName))
{
}

X11ScreenCapture::X11ScreenCapture(const QString &ownAppID, std::shared_ptr<X11RedirectionKeeper> keeper,
                                   std::shared_ptr<RememberedTraces> remembered)
    : m_worker(std::make_shared<Worker>(ownAppID, std::move(keeper), std::move(remembered)))
{
}

X11ScreenCapture::~X11ScreenCapture() = default;

Capability X11ScreenCapture::availability() const
{
    try {
        const X11Connection connection(m_worker->displayName);
        if (connection.isXWayland())
            return Capability::unavailable("This is a Wayland session: the X server does not show the screen.");
        if (!X11Extensions::of(connection).hasRender)
            return Capability::unavailable("Pictures cannot be taken: the X server lacks Render.");
        return Capability::available();
    } catch (const Failure &failure) {
        return Capability::unavailable(failure.description());
    }
}

Capability X11ScreenCapture::exclusionAvailability() const
{
    const Capability pictures = availability();
    if (!pictures.isAvailable())
        return pictures;
    try {
        const QString missing = X11Extensions::of(X11Connection(m_worker->displayName)).missingForExclusion();
        return missing.isEmpty() ? Capability::available()
                                 : Capability::unavailable(u"The X server lacks %1."_qs.arg(missing));
    } catch (const Failure &failure) {
        return Capability::unavailable(failure.description());
    }
}

QList<CaptureDisplay> X11ScreenCapture::displays()
{
    const X11Connection connection(m_worker->displayName);
    QList<CaptureDisplay> displays;
    for (const Display &display : readDisplays(connection))
        displays.append({display.id, display.bounds});
    requireAlive(connection);
    return displays;
}

void X11ScreenCapture::prepareExclusion(const QSet<QString> &appIDs)
{
    // exclusionAvailability() says why when it cannot; a picture that needs it fails with the same reason.
    if (appIDs.isEmpty())
        m_worker->keeper->dismiss();
    else
        m_worker->keeper->keep();
}

QCoro::Task<Canvas> X11ScreenCapture::compose(CanvasRequest request)
{
    const std::shared_ptr<Worker> worker = m_worker;
    const auto work = [worker, request] { return worker->picture(request); };
    co_return co_await inWorker(work);
}

} // namespace ardeno
