// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/CaptureService.h"

#include "capture/ScreenshotLayout.h"
#include "media/PngWriter.h"
#include "support/AtomicFile.h"
#include "support/Failure.h"
#include "support/InWorker.h"

#include <QCoreApplication>
#include <new>

namespace ardeno {

namespace {

Failure captureFailure(int code, const QString &description)
{
    return {"Capture", code, description};
}

Failure noCanvas()
{
    return captureFailure(
        2, QCoreApplication::translate("ardeno::CaptureService", "The screenshot canvas could not be created."));
}

CanvasRequest canvasRequest(const QList<CaptureDisplay> &displays, const QSet<QString> &excludedAppIDs)
{
    QList<WindowRect> frames;
    for (const CaptureDisplay &display : displays)
        frames.append(display.bounds);
    const ScreenshotLayout layout = screenshotLayout(frames);

    CanvasRequest request;
    request.size = QSize(int(layout.width), int(layout.height));
    request.excludedAppIDs = excludedAppIDs;
    for (qsizetype i = 0; i < layout.placements.size(); ++i) {
        WindowRect target = layout.placements[i];
        target.y = layout.height - target.maxY(); // The layout counts upwards, the canvas downwards.
        request.placements.append({displays[i], target});
    }
    return request;
}

bool isComplete(const Canvas &canvas)
{
    return !canvas.size.isEmpty() && canvas.pixels.size() == qsizetype(canvas.size.width()) * canvas.size.height() * 4;
}

void writeScreenshot(const QString &path, const Canvas &canvas)
{
    const QByteArray png = PngWriter::encoded(canvas.size, canvas.pixels);
    if (png.isEmpty())
        throw captureFailure(
            2, QCoreApplication::translate("ardeno::CaptureService", "The screenshot could not be encoded."));
    AtomicFile::replace(path, png);
}

} // namespace

QCoro::Task<void> CaptureService::screenshot(QString path, QSet<QString> excludingAppIDs)
{
    const QList<CaptureDisplay> displays = m_screen.displays();
    if (displays.isEmpty())
        throw captureFailure(
            1, QCoreApplication::translate("ardeno::CaptureService", "No display is available to capture."));
    const CanvasRequest request = canvasRequest(displays, excludingAppIDs);
    if (request.size.isEmpty())
        throw noCanvas();

    Canvas canvas;
    try {
        canvas = co_await m_screen.compose(request);
    } catch (const std::bad_alloc &) {
        throw noCanvas();
    }
    if (!isComplete(canvas))
        throw captureFailure(
            2, QCoreApplication::translate("ardeno::CaptureService", "The screenshot could not be created."));
    const auto work = [&] { writeScreenshot(path, canvas); };
    co_await inWorker(work);
}

QCoro::Task<void> CaptureService::verifyAccess()
{
    if (m_screen.displays().isEmpty())
        throw captureFailure(1, QCoreApplication::translate("ardeno::CaptureService", "No display is available."));
    co_return;
}

} // namespace ardeno
