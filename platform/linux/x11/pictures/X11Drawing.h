// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/pictures/X11Region.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <QHash>
#include <QSize>

#include <memory>

#include <xcb/render.h>

namespace ardeno {

// The formats in which the server draws, of each visual and of pictures with alpha.
class RenderFormats final {
public:
    explicit RenderFormats(const X11Connection &connection);

    // XCB_NONE for a visual that cannot be drawn.
    xcb_render_pictformat_t ofVisual(xcb_visualid_t visual) const { return m_ofVisual.value(visual, XCB_NONE); }

    // 32 bits, premultiplied; XCB_NONE when the server has no such format.
    xcb_render_pictformat_t withAlpha() const { return m_withAlpha; }

private:
    QHash<xcb_visualid_t, xcb_render_pictformat_t> m_ofVisual = {};
    xcb_render_pictformat_t m_withAlpha = XCB_NONE;
};

// Something that can be drawn from and on; frees what it has made. Move only.
class RenderPicture final {
public:
    RenderPicture() = default;
    // Of a window with everything in it, or of a pixmap, which is freed with the picture when it is given away.
    enum class Owns { Nothing, Pixmap };
    RenderPicture(const X11Connection &connection, xcb_drawable_t drawable, xcb_render_pictformat_t format, Owns owns);
    // A new pixmap with alpha. Throws std::bad_alloc when the server has no memory for it.
    RenderPicture(const X11Connection &connection, const RenderFormats &formats, QSize size);

    RenderPicture(RenderPicture &&other) noexcept;
    RenderPicture &operator=(RenderPicture &&other) noexcept;
    ~RenderPicture();

    xcb_render_picture_t id() const { return m_picture; }

    xcb_drawable_t drawable() const { return m_drawable; }

    bool isNull() const { return m_picture == XCB_NONE; }

private:
    const X11Connection *m_connection = nullptr;
    xcb_drawable_t m_drawable = XCB_NONE;
    xcb_render_picture_t m_picture = XCB_NONE;
    bool m_ownsPixmap = false;
};

// What is drawn outside these rectangles is lost from now on.
void clip(const X11Connection &connection, const RenderPicture &picture, const X11Region &region);

// Opaque grey of this level over the rectangles.
void fillGrey(const X11Connection &connection, const RenderPicture &picture, quint8 level, const X11Region &region);

} // namespace ardeno
