// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/LinuxMailProgram.h"

#include "platform/linux/browsers/BrowserIdentities.h"

#include <gio/gdesktopappinfo.h>

#include <memory>

namespace ardeno {

namespace {

struct ReleaseMailApp {
    void operator()(GAppInfo *app) const { g_object_unref(app); }
};

using MailApp = std::unique_ptr<GAppInfo, ReleaseMailApp>;

constexpr const char *mailType = "x-scheme-handler/mailto";

// Browsers take every address, and most show a page of their own for this one.
bool isBrowser(GAppInfo *app)
{
    const QString categories = QString::fromUtf8(
        G_IS_DESKTOP_APP_INFO(app) ? g_desktop_app_info_get_categories(G_DESKTOP_APP_INFO(app)) : nullptr);
    const QStringList all = categories.split(';');
    if (all.contains("WebBrowser"))
        return !all.contains("Email"); // Some do both.
    const QString fileID = QString::fromUtf8(g_app_info_get_id(app)).section(".desktop", 0, 0);
    return BrowserIdentities::named(fileID).has_value();
}

MailApp registeredMailApp()
{
    MailApp standard(g_app_info_get_default_for_uri_scheme("mailto"));
    if (standard && !isBrowser(standard.get()))
        return standard;
    GList *const all = g_app_info_get_all_for_type(mailType);
    MailApp found;
    for (const GList *entry = all; entry && !found; entry = entry->next) {
        if (!isBrowser(G_APP_INFO(entry->data)))
            found.reset(G_APP_INFO(g_object_ref(entry->data)));
    }
    g_list_free_full(all, g_object_unref);
    return found;
}

} // namespace

bool LinuxMailProgram::openDraft(const QUrl &address)
{
    const MailApp app = registeredMailApp();
    if (!app || address.scheme() != "mailto")
        return false;
    QByteArray text = address.toEncoded();
    GList *const addresses = g_list_append(nullptr, text.data());
    GError *problem = nullptr;
    const bool isOpened = g_app_info_launch_uris(app.get(), addresses, nullptr, &problem);
    g_clear_error(&problem);
    g_list_free(addresses);
    return isOpened;
}

} // namespace ardeno
