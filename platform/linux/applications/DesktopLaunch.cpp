// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/DesktopLaunch.h"

#include "platform/linux/applications/SeparateWindows.h"
#include "platform/linux/bus/BusActivation.h"
#include "support/Failure.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <array>
#include <csignal>
#include <memory>
#include <unistd.h>
#include <vector>

namespace ardeno {

namespace {

struct UnreferenceObject {
    void operator()(void *object) const { g_object_unref(object); }
};

template <typename T>
using Object = std::unique_ptr<T, UnreferenceObject>;

constexpr auto spawnFlags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD |
                                                     G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);

[[noreturn]] void fail(GError *error)
{
    const QString message = error ? QString::fromUtf8(error->message) : QString();
    g_clear_error(&error);
    throw Failure("Launch", 1, message.isEmpty() ? u"It could not be started."_qs : message);
}

// In the new process, before its program is run: only what is safe between the two.
void prepareProcess(gpointer home)
{
    ::setsid();
    std::signal(SIGPIPE, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    if (::chdir(static_cast<const char *>(home)) != 0)
        return; // It stays where it is.
}

Object<GDesktopAppInfo> appInfo(const DesktopEntry &entry)
{
    Object<GDesktopAppInfo> info(g_desktop_app_info_new_from_filename(QFile::encodeName(entry.path).constData()));
    if (!info)
        throw Failure("Launch", 2, "It is no longer installed.");
    return info;
}

// The same without its word that the session's bus starts it: it is started by its command.
Object<GDesktopAppInfo> commandInfo(const DesktopEntry &entry)
{
    GKeyFile *file = g_key_file_new();
    g_key_file_load_from_file(file, QFile::encodeName(entry.path).constData(), G_KEY_FILE_NONE, nullptr);
    g_key_file_remove_key(file, G_KEY_FILE_DESKTOP_GROUP, G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE, nullptr);
    Object<GDesktopAppInfo> info(g_desktop_app_info_new_from_keyfile(file));
    g_key_file_unref(file);
    if (!info || !g_app_info_get_commandline(G_APP_INFO(info.get())))
        throw Failure("Launch", 3, "Its service did not answer.");
    return info;
}

bool isBusActivated(GDesktopAppInfo *info)
{
    return g_desktop_app_info_get_boolean(info, G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE) != 0;
}

void keep(GDesktopAppInfo *, GPid pid, gpointer processes)
{
    static_cast<DesktopLaunch::Processes *>(processes)->append(pid);
}

QByteArray uri(const QString &path)
{
    return QUrl::fromLocalFile(path).toEncoded(QUrl::FullyEncoded);
}

// The words of a command with the addresses in the place that it has for them.
QList<QByteArray> withAddresses(const QList<QByteArray> &command, const QStringList &addresses)
{
    QList<QByteArray> words;
    bool isPlaced = false;
    const auto place = [&] {
        for (const QString &address : addresses)
            words += address.toUtf8();
        isPlaced = true;
    };
    for (QByteArray word : command) {
        if (word == "%u" || word == "%U")
            place();
        else if (word.size() != 2 || word[0] != '%')
            words += word.replace("%%", "%");
    }
    if (!isPlaced)
        place();
    return words;
}

QList<QByteArray> wordsOf(const char *line)
{
    int count = 0;
    char **words = nullptr;
    GError *error = nullptr;
    if (!line || !g_shell_parse_argv(line, &count, &words, &error))
        fail(error);
    const QList<QByteArray> command(words, words + count);
    g_strfreev(words);
    return command;
}

QList<QByteArray> commandOf(GDesktopAppInfo *info)
{
    return wordsOf(g_app_info_get_commandline(G_APP_INFO(info)));
}

// Of the action by which many applications offer a further window, where it says that it takes something to show: some
// open an empty window whatever they are given.
QList<QByteArray> newWindowCommand(const DesktopEntry &entry)
{
    GKeyFile *file = g_key_file_new();
    g_key_file_load_from_file(file, QFile::encodeName(entry.path).constData(), G_KEY_FILE_NONE, nullptr);
    char *line = g_key_file_get_string(file, "Desktop Action new-window", G_KEY_FILE_DESKTOP_KEY_EXEC, nullptr);
    g_key_file_unref(file);
    const QByteArray owned(line);
    g_free(line);
    const QList<QByteArray> words = owned.isEmpty() ? QList<QByteArray>() : wordsOf(owned.constData());
    const auto takesPath = [](const QByteArray &word) {
        return word.size() == 2 && QByteArray("%f%F%u%U").contains(word);
    };
    return std::any_of(words.begin(), words.end(), takesPath) ? words : QList<QByteArray>();
}

// The command that shows one thing in a window of its own; empty when none is known.
QList<QByteArray> separateCommand(const DesktopEntry &entry)
{
    for (const SeparateWindows::Known &known : SeparateWindows::known) {
        if (known.application.compare(entry.id, Qt::CaseInsensitive) == 0)
            return withAddresses(commandOf(appInfo(entry).get()), {known.word.toString()});
    }
    return newWindowCommand(entry);
}

DesktopLaunch::Processes start(QList<QByteArray> words)
{
    std::vector<char *> arguments;
    for (QByteArray &word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    QByteArray home = QFile::encodeName(QDir::homePath());
    GPid pid = 0;
    GError *error = nullptr;
    if (!g_spawn_async(nullptr, arguments.data(), nullptr, spawnFlags, prepareProcess, home.data(), &pid, &error))
        fail(error);
    return {pid};
}

QString fileID(GAppInfo *info)
{
    if (!info)
        return {};
    QString id = QString::fromUtf8(g_app_info_get_id(info));
    g_object_unref(info);
    if (id.endsWith(".desktop"))
        id.chop(8);
    return id;
}

// Programs and the descriptions of programs: opening one may run it.
bool isRunnable(const char *type)
{
    return g_content_type_is_a(type, "application/x-executable") ||
           g_content_type_is_a(type, "application/x-desktop") ||
           g_content_type_is_a(type, "application/x-ms-dos-executable");
}

} // namespace

DesktopLaunch::Processes DesktopLaunch::open(const DesktopEntry &entry, const QStringList &paths)
{
    QList<QByteArray> addresses;
    for (const QString &path : paths)
        addresses += uri(path);
    Object<GDesktopAppInfo> info = appInfo(entry);
    if (isBusActivated(info.get())) {
        const QString name = QFileInfo(entry.path).completeBaseName();
        if (BusActivation::open(name, addresses) == BusActivation::Answer::Opened)
            return {};
        info = commandInfo(entry);
    }
    const Object<GAppLaunchContext> context(g_app_launch_context_new());
    GList *uris = nullptr;
    for (auto address = addresses.rbegin(); address != addresses.rend(); ++address)
        uris = g_list_prepend(uris, address->data());
    QByteArray home = QFile::encodeName(QDir::homePath());
    Processes started;
    GError *error = nullptr;
    const bool isDone = g_desktop_app_info_launch_uris_as_manager(info.get(), uris, context.get(), spawnFlags,
                                                                  prepareProcess, home.data(), keep, &started, &error);
    g_list_free(uris);
    if (!isDone)
        fail(error);
    return started;
}

std::optional<KnownBrowser> DesktopLaunch::browserOf(const DesktopEntry &entry)
{
    if (const auto known = BrowserIdentities::named(entry.id))
        return known;
    // A starter of its own, perhaps through another program: "env VARIABLE=value chromium --user-data-dir=…".
    for (const QByteArray &word : commandOf(appInfo(entry).get())) {
        const auto known = BrowserIdentities::ofProgram(QString::fromLocal8Bit(word));
        if (known)
            return known;
        if (word.startsWith('%'))
            break;
    }
    return std::nullopt;
}

DesktopLaunch::Processes DesktopLaunch::openAddresses(const DesktopEntry &entry, const QStringList &addresses)
{
    return start(withAddresses(commandOf(appInfo(entry).get()), addresses));
}

DesktopLaunch::Processes DesktopLaunch::openSeparately(const DesktopEntry &entry, const QString &path)
{
    const QList<QByteArray> command = separateCommand(entry);
    return command.isEmpty() ? open(entry, {path}) : start(withAddresses(command, {path}));
}

void DesktopLaunch::showInFileBrowser(const QString &path)
{
    constexpr int patience = 5000; // Milliseconds; a file browser may have to be started for it.
    GError *error = nullptr;
    const Object<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &error));
    if (!bus)
        fail(error);
    const QByteArray address = uri(path);
    const std::array<const char *, 2> uris = {address.constData(), nullptr};
    GVariant *arguments = g_variant_new("(^ass)", uris.data(), "");
    GVariant *answer = g_dbus_connection_call_sync(bus.get(), "org.freedesktop.FileManager1",
                                                   "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1",
                                                   QFileInfo(path).isDir() ? "ShowFolders" : "ShowItems", arguments,
                                                   nullptr, G_DBUS_CALL_FLAGS_NONE, patience, nullptr, &error);
    if (!answer)
        fail(error);
    g_variant_unref(answer);
}

QString DesktopLaunch::handlerOfWeb()
{
    return fileID(g_app_info_get_default_for_uri_scheme("https"));
}

QString DesktopLaunch::handlerOfPath(const QString &path)
{
    const Object<GFile> file(g_file_new_for_path(QFile::encodeName(path).constData()));
    GFileInfo *info =
        g_file_query_info(file.get(), G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE, G_FILE_QUERY_INFO_NONE, nullptr, nullptr);
    if (!info)
        return {};
    const Object<GFileInfo> owned(info);
    const char *type = g_file_info_get_content_type(info);
    if (!type || isRunnable(type))
        return {};
    return fileID(g_app_info_get_default_for_type(type, false));
}

} // namespace ardeno
