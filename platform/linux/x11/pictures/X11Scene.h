// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/pictures/WindowVisibility.h"
#include "platform/linux/x11/pictures/X11Background.h"
#include "platform/linux/x11/pictures/X11Drawing.h"
#include "platform/linux/x11/pictures/X11Redirection.h"

#include <vector>

namespace ardeno {

// The desktop put together from the pixmaps of its windows, without those that are left out. Made and drawn while the
// server is grabbed.
class X11Scene final {
public:
    // Windows are viewable ones from the bottom to the top. What may show pixels of a window that is left out is
    // filled with this level of grey. The background outlives the scene.
    X11Scene(const X11Redirection &redirection, const RenderFormats &formats, const QList<TopLevel> &windows,
             const WindowVisibility &visibility, const X11Background &background, quint8 grey);

    // See PaintDesktop.
    void draw(const RenderPicture &picture, const QRect &area, const QPoint &at) const;

private:
    struct Layer {
        RenderPicture picture = {};
        QRect outer = {};
        X11Region outline = {};  // Root coordinates.
        X11Region obscured = {}; // Root coordinates.
        bool isTranslucent = false;
    };

    Layer layer(const X11Redirection &redirection, const RenderFormats &formats, const TopLevel &window) const;
    void drawLayer(const Layer &layer, const RenderPicture &picture, const QRect &area, const QPoint &offset) const;

    const X11Connection &m_connection;
    bool m_hasCompositor;
    const X11Background &m_background;
    std::vector<Layer> m_layers = {};
    quint8 m_grey;
};

// Waits until the owners have drawn what pictures would show and what has just been uncovered, as long as it is worth
// it. Areas are those of the displays.
void waitForDrawing(X11Redirection &redirection, const WindowVisibility &visibility, const X11Region &displays);

} // namespace ardeno
