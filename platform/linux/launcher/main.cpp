// SPDX-License-Identifier: GPL-3.0-or-later
// What people start. It loads next to nothing and becomes the program for what was asked: the one with the window, or
// the one that carries out commands; each loads only what it needs.
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

bool isSet(const char *variable)
{
    const char *const value = std::getenv(variable);
    return value && *value;
}

bool isDisplayReachable()
{
    if (isSet("WAYLAND_DISPLAY"))
        return true;
    if (!isSet("DISPLAY"))
        return false;
    xcb_connection_t *const connection = xcb_connect(nullptr, nullptr);
    const bool isReachable = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return isReachable;
}

// Where the programs are: never where a user or another program could put one. Ends in a slash.
std::string programFolder()
{
    std::string self(PATH_MAX, '\0');
    const ssize_t length = ::readlink("/proc/self/exe", self.data(), self.size());
    self.resize(length > 0 ? static_cast<size_t>(length) : 0);
    self.resize(self.rfind('/') + 1);
    const std::string installed = self + "../lib/ardeno/";
    return ::access(installed.c_str(), X_OK) == 0 ? installed : self + "lib/ardeno/";
}

// Returns only when that is not possible.
int become(const char *name, char **arguments)
{
    const std::string program = programFolder() + name;
    ::execv(program.c_str(), arguments);
    std::fprintf(stderr, "“%s” cannot be started: %s\n", program.c_str(), std::strerror(errno));
    return 1;
}

// A file that is opened later must not become a standard stream that nobody gave. What is written there fails, as it
// would without one.
void holdStandardStreams()
{
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (::fcntl(stream, F_GETFD) < 0)
            ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

// Without what a session manager adds when it starts a session again, which the window's program knows.
int ownCount(int count, char **arguments)
{
    for (int at = 1; at < count; ++at) {
        if (arguments[at] == std::string_view("-session"))
            return at;
    }
    return count;
}

} // namespace

int main(int count, char **arguments)
{
    holdStandardStreams();
    const int own = ownCount(count, arguments);
    const bool isAlone = own == 1;
    const bool isBackground = own == 2 && arguments[1] == std::string_view("--background");
    const bool canShow = (isAlone || isBackground) && isDisplayReachable();
    if (isAlone && !canShow) {
        std::fputs("There is no display to open a window on. See ardeno --help for what works without one.\n", stderr);
        return 3;
    }
    return become(canShow ? "ardeno-window" : "ardeno-command", arguments);
}
