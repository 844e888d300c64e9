// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11Scene.h"

#include <algorithm>
#include <utility>

#include <xcb/composite.h>

namespace ardeno {

namespace {

bool isTranslucent(const TopLevel &window, bool hasCompositor)
{
    return window.depth == 32 && hasCompositor;
}

// When the last owner of something visible stops being waited for; the past when there is nothing to wait for.
X11Redirection::Clock::time_point lastPatience(const X11Redirection &redirection, const WindowVisibility &visibility,
                                               X11Region visible)
{
    const X11Connection &connection = redirection.connection();
    const QList<TopLevel> windows = viewableOf(topLevels(connection));
    const QList<X11Region> shapes = outlines(connection, windows);
    X11Redirection::Clock::time_point last = {};
    for (qsizetype i = windows.size() - 1; i >= 0; --i) {
        const TopLevel &window = windows[i];
        if (!visibility.allowed.contains(window.id) || visibility.hidden.contains(window.id))
            continue;
        X11Region missing = redirection.untrusted(window.id, visibility.allowed);
        missing.add(redirection.awaited(window.id));
        const X11Region outline = shapes[i].translated(window.outer.topLeft());
        if (!missing.translated(window.outer.topLeft()).intersected(outline).intersected(visible).isEmpty())
            last = std::max(last, redirection.patience(window.id));
        if (!isTranslucent(window, visibility.isComposited))
            visible.subtract(outline);
    }
    return last;
}

} // namespace

void waitForDrawing(X11Redirection &redirection, const WindowVisibility &visibility, const X11Region &displays)
{
    redirection.processEvents();
    if (redirection.showsOnly(visibility.allowed))
        return;
    redirection.askToDraw(visibility.allowed);
    auto until = lastPatience(redirection, visibility, displays);
    while (until > X11Redirection::Clock::now() && redirection.waitForEvents(until)) {
        redirection.processEvents();
        until = lastPatience(redirection, visibility, displays);
    }
    redirection.processEvents();
}

X11Scene::X11Scene(const X11Redirection &redirection, const RenderFormats &formats, const QList<TopLevel> &windows,
                   const WindowVisibility &visibility, const X11Background &background, quint8 grey)
    : m_connection(redirection.connection()),
      m_hasCompositor(visibility.isComposited),
      m_background(background),
      m_grey(grey)
{
    const QList<X11Region> shapes = outlines(m_connection, windows);
    for (qsizetype i = 0; i < windows.size(); ++i) {
        const TopLevel &window = windows[i];
        if (!visibility.allowed.contains(window.id) || visibility.hidden.contains(window.id))
            continue;
        Layer added = layer(redirection, formats, window);
        added.outline = shapes[i].translated(window.outer.topLeft());
        added.obscured.add(redirection.untrusted(window.id, visibility.allowed).translated(window.outer.topLeft()));
        m_layers.push_back(std::move(added));
    }
}

X11Scene::Layer X11Scene::layer(const X11Redirection &redirection, const RenderFormats &formats,
                                const TopLevel &window) const
{
    Layer layer;
    layer.outer = window.outer;
    layer.isTranslucent = isTranslucent(window, m_hasCompositor);
    const xcb_render_pictformat_t format = formats.ofVisual(window.visual);
    if (format == XCB_NONE) {
        layer.obscured.add(window.outer);
        return layer;
    }
    const xcb_pixmap_t pixmap = xcb_generate_id(m_connection.xcb());
    xcb_composite_name_window_pixmap(redirection.connection().xcb(), window.id, pixmap);
    layer.picture = RenderPicture(m_connection, pixmap, format, RenderPicture::Owns::Pixmap);
    return layer;
}

void X11Scene::draw(const RenderPicture &picture, const QRect &area, const QPoint &at) const
{
    clip(m_connection, picture, QRect(at, area.size()));
    m_background.draw(picture, area, at);
    for (const Layer &layer : m_layers)
        drawLayer(layer, picture, area, at - area.topLeft());
}

void X11Scene::drawLayer(const Layer &layer, const RenderPicture &picture, const QRect &area,
                         const QPoint &offset) const
{
    const X11Region visible = layer.outline.intersected(area);
    if (visible.isEmpty())
        return;
    clip(m_connection, picture, visible.translated(offset));
    const QRect drawn = visible.boundingRectangle();
    const QPoint source = drawn.topLeft() - layer.outer.topLeft();
    const QPoint target = drawn.topLeft() + offset;
    if (!layer.picture.isNull()) {
        const quint8 operation = layer.isTranslucent ? XCB_RENDER_PICT_OP_OVER : XCB_RENDER_PICT_OP_SRC;
        xcb_render_composite(m_connection.xcb(), operation, layer.picture.id(), XCB_NONE, picture.id(),
                             qint16(source.x()), qint16(source.y()), 0, 0, qint16(target.x()), qint16(target.y()),
                             quint16(drawn.width()), quint16(drawn.height()));
    }
    const X11Region obscured = layer.obscured.intersected(area);
    if (!obscured.isEmpty())
        fillGrey(m_connection, picture, m_grey, obscured.translated(offset));
}

} // namespace ardeno
