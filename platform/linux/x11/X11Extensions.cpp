// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/X11Extensions.h"

#include <QStringList>

#include <xcb/composite.h>
#include <xcb/damage.h>
#include <xcb/render.h>
#include <xcb/shm.h>
#include <xcb/xfixes.h>

namespace ardeno {

namespace {

// Whether the reply names at least this version; no reply means that the extension is missing.
template <typename Reply>
bool isAtLeast(Reply *reply, quint32 major, quint32 minor)
{
    const X11Reply<Reply> owned(reply);
    return owned && (owned->major_version > major || (owned->major_version == major && owned->minor_version >= minor));
}

bool isPresent(xcb_connection_t *xcb, xcb_extension_t &extension)
{
    const auto *data = xcb_get_extension_data(xcb, &extension);
    return data && data->present;
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

    // A request of a missing extension ends the connection, so only those that are there are asked.
    const bool render = isPresent(xcb, xcb_render_id);
    const bool composite = isPresent(xcb, xcb_composite_id);
    const bool fixes = isPresent(xcb, xcb_xfixes_id);
    const bool damage = isPresent(xcb, xcb_damage_id);
    const bool shm = isPresent(xcb, xcb_shm_id);
    const auto renderVersion = render ? xcb_render_query_version(xcb, 0, 11) : xcb_render_query_version_cookie_t{};
    const auto compositeVersion =
        composite ? xcb_composite_query_version(xcb, 0, 4) : xcb_composite_query_version_cookie_t{};
    const auto fixesVersion = fixes ? xcb_xfixes_query_version(xcb, 5, 0) : xcb_xfixes_query_version_cookie_t{};
    const auto damageVersion = damage ? xcb_damage_query_version(xcb, 1, 1) : xcb_damage_query_version_cookie_t{};
    const auto shmVersion = shm ? xcb_shm_query_version(xcb) : xcb_shm_query_version_cookie_t{};

    X11Extensions found;
    found.hasRender = render && isAtLeast(xcb_render_query_version_reply(xcb, renderVersion, nullptr), 0, 10);
    found.hasComposite =
        composite && isAtLeast(xcb_composite_query_version_reply(xcb, compositeVersion, nullptr), 0, 2);
    found.hasFixes = fixes && isAtLeast(xcb_xfixes_query_version_reply(xcb, fixesVersion, nullptr), 2, 0);
    found.hasDamage = damage && isAtLeast(xcb_damage_query_version_reply(xcb, damageVersion, nullptr), 1, 0);
    found.hasSharedMemory = shm && isAtLeast(xcb_shm_query_version_reply(xcb, shmVersion, nullptr), 1, 2);
    if (damage)
        found.firstDamageEvent = xcb_get_extension_data(xcb, &xcb_damage_id)->first_event;
    return found;
}

} // namespace ardeno
