// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>
#include <QSizeF>

// The arithmetic of the screenshot viewer. A scale is points of the screen for each pixel of the picture; a zoom is a
// scale too, except that 0 fits the picture into the window. Sizes of contents are in points.
namespace ardeno::ScreenshotScale {

constexpr double least = 0.05;
constexpr double most = 4.0;
constexpr double step = 1.25;
constexpr double margin = 24; // On every side.
constexpr double fitting = 0; // The zoom that fits.
constexpr double actual = 1.0;

// Never enlarges.
double fit(const QSizeF &content, const QSize &pixels);

double base(double zoom, const QSizeF &content, const QSize &pixels);

// With the factor of a pinch that is under way, else 1.
double inUse(double zoom, double magnification, const QSizeF &content, const QSize &pixels);

// The zoom that follows from the scale in use; the factor is one step unless a wheel says otherwise.
double zoomedIn(double scale, double factor = step);
double zoomedOut(double scale);

// What a double click makes of a zoom.
double toggled(double zoom);

// Whole per cent, cut off.
int percent(double scale);

} // namespace ardeno::ScreenshotScale
