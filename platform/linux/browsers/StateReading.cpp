// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/StateReading.h"

#include "platform/linux/browsers/ChromiumState.h"
#include "platform/linux/browsers/FirefoxState.h"
#include "platform/linux/files/SlowMounts.h"

#include <QFile>

#include <algorithm>

namespace ardeno {

BrowserState StateReading::read(const BrowserProcess &process, BrowserFamily family)
{
    constexpr std::chrono::seconds timeForDisk(2);
    SlowMounts &mounts = SlowMounts::ofMachine();
    const auto isSlow = [&](const QString &path) { return mounts.isSlow(QFile::encodeName(path)); };
    const auto slow = std::find_if(process.openFiles.begin(), process.openFiles.end(), isSlow);
    const QString profile = slow == process.openFiles.end() ? process.facts.folder() : *slow;
    const auto question = [process, family] {
        return family == BrowserFamily::Firefox ? FirefoxState::read(process) : ChromiumState::read(process);
    };
    const BrowserState unread{.unreadProfiles = std::max<qsizetype>(process.openFiles.size(), 1)};
    return mounts.ask(QFile::encodeName(profile), question, timeForDisk).value_or(unread);
}

} // namespace ardeno
