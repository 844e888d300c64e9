// SPDX-License-Identifier: GPL-3.0-or-later
// The screenshot viewer against reading its picture.

#include "bench/Bench.h"
#include "bench/PaintWatch.h"
#include "ui/theme/AppStyle.h"
#include "ui/viewer/PicturePreviews.h"
#include "ui/viewer/ScreenshotViewer.h"

#include <QApplication>
#include <QPainter>
#include <QTemporaryDir>

#include <cstdlib>

using namespace ardeno;
using namespace ardeno::bench;

namespace {

QImage screens()
{
    QImage image(8192, 4096, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient background(0, 0, 8192, 4096);
    background.setColorAt(0, QColor(60, 88, 140));
    background.setColorAt(1, QColor(150, 130, 180));
    painter.fillRect(image.rect(), background);
    painter.fillRect(QRect(300, 300, 5000, 3400), Qt::white);
    painter.setFont(QFont("DejaVu Sans", 20));
    for (int y = 360; y < 3700; y += 36)
        painter.drawText(340, y, QString("Line %1 of a text that fills much of the screen ").arg(y).repeated(6));
    return image;
}

void measureViewer(Table &table, const QString &path)
{
    PicturePreviews::keep(path, QImage(path).scaledToWidth(870, Qt::SmoothTransformation));
    int previewsAtFirstPaint = 0;
    int openings = 0;
    std::unique_ptr<ScreenshotViewer> viewer;
    const auto open = [&] {
        viewer = std::make_unique<ScreenshotViewer>(path);
        const PaintWatch watch(viewer->canvas().viewport());
        viewer->show();
        spinUntil([&] { return watch.isPainted(); });
        ++openings;
        previewsAtFirstPaint += viewer->canvas().hasPreview() ? 1 : 0;
        spinUntil([&] { return viewer->canvas().isSharp(); });
        viewer->canvas().viewport()->repaint();
    };
    const auto load = [&] {
        if (QImage(path).isNull())
            std::abort();
    };
    const auto medians = interleavedMedians(9, {open, load}, [&] { viewer.reset(); });
    table.add("first pictures of the viewer without its preview", QString::number(openings - previewsAtFirstPaint),
              QString("0 of %1").arg(openings), openings - previewsAtFirstPaint, 0);
    table.add("viewer of 8192 × 4096 until it is sharp / QImage of the file", milliseconds(medians.at(0)),
              milliseconds(medians.at(1)), medians.at(0) / medians.at(1), 1.2);

    open();
    viewer->canvas().zoomIn();
    spinUntil([&] { return viewer->canvas().isSharp(); });
    bool isIn = false;
    const auto zoom = [&] {
        isIn = !isIn;
        isIn ? viewer->canvas().zoomIn() : viewer->canvas().zoomOut();
        viewer->canvas().viewport()->repaint();
    };
    const double step = interleavedMedians(31, {zoom}).at(0);
    table.add("a zoom step, drawn / QImage of the file", milliseconds(step), milliseconds(medians.at(1)),
              step / medians.at(1), 0.1);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication::setStyle(new AppStyle);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QTemporaryDir folder;
    const QString path = folder.filePath("screens.png");
    if (!screens().save(path))
        return 2;
    Table table;
    measureViewer(table, path);
    return table.finish();
}
