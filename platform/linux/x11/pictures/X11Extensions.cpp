// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11Extensions.h"

#include <QStringList>

#include <optional>

#include <xcb/composite.h>
#include <xcb/damage.h>
#include <xcb/render.h>
#include <xcb/shm.h>
#include <xcb/xfixes.h>

namespace ardeno {

namespace {

bool isPresent(xcb_connection_t *xcb, xcb_extension_t &extension)
{
    const auto *data = xcb_get_extension_data(xcb, &extension);
    return data && data->present;
}

// The question for the version of an extension; absent when it is missing, because a request of a missing extension
// ends the connection.
template <typename Ask>
auto asked(xcb_connection_t *xcb, xcb_extension_t &extension, const Ask &ask)
{
    return isPresent(xcb, extension) ? std::optional(ask(xcb)) : std::nullopt;
}

template <typename Reply, typename Cookie>
X11Reply<Reply> answer(xcb_connection_t *xcb, const std::optional<Cookie> &question,
                       Reply *(*read)(xcb_connection_t *, Cookie, xcb_generic_error_t **))
{
    return X11Reply<Reply>(question ? read(xcb, *question, nullptr) : nullptr);
}

template <typename Reply>
bool isAtLeast(const X11Reply<Reply> &reply, quint32 major, quint32 minor)
{
    return reply && (reply->major_version > major || (reply->major_version == major && reply->minor_version >= minor));
}

} // namespace

QString X11Extensions::missingForExclusion() const
{
    QStringList missing;
    if (!hasComposite)
        missing.append("Composite 0.2");
    if (!hasFixes)
        missing.append("XFixes 2");
    if (!hasDamage)
        missing.append("Damage");
    if (!hasRender)
        missing.append("Render");
    return missing.join(", ");
}

X11Extensions X11Extensions::of(const X11Connection &connection)
{
    xcb_connection_t *xcb = connection.xcb();
    for (xcb_extension_t *extension : {&xcb_render_id, &xcb_composite_id, &xcb_xfixes_id, &xcb_damage_id, &xcb_shm_id})
        xcb_prefetch_extension_data(xcb, extension);

    const auto render = asked(xcb, xcb_render_id, [](auto *to) { return xcb_render_query_version(to, 0, 11); });
    const auto composite = asked(xcb, xcb_composite_id, [](auto *to) { return xcb_composite_query_version(to, 0, 4); });
    const auto fixes = asked(xcb, xcb_xfixes_id, [](auto *to) { return xcb_xfixes_query_version(to, 5, 0); });
    const auto damage = asked(xcb, xcb_damage_id, [](auto *to) { return xcb_damage_query_version(to, 1, 1); });
    const auto shm = asked(xcb, xcb_shm_id, [](auto *to) { return xcb_shm_query_version(to); });

    X11Extensions found;
    found.hasRender = isAtLeast(answer(xcb, render, xcb_render_query_version_reply), 0, 10);
    found.hasComposite = isAtLeast(answer(xcb, composite, xcb_composite_query_version_reply), 0, 2);
    found.hasFixes = isAtLeast(answer(xcb, fixes, xcb_xfixes_query_version_reply), 2, 0);
    found.hasDamage = isAtLeast(answer(xcb, damage, xcb_damage_query_version_reply), 1, 0);
    const auto memory = answer(xcb, shm, xcb_shm_query_version_reply);
    found.hasSharedMemory = isAtLeast(memory, 1, 2);
    found.hasSharedPixmaps =
        found.hasSharedMemory && memory->shared_pixmaps && memory->pixmap_format == XCB_IMAGE_FORMAT_Z_PIXMAP;
    if (damage)
        found.firstDamageEvent = xcb_get_extension_data(xcb, &xcb_damage_id)->first_event;
    return found;
}

} // namespace ardeno
