// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fakes/InMemoryParts.h"

namespace ardeno::fakes {

void InMemoryDesktop::addApplication(const QString &id, const QString &name, const WindowRect &frame,
                                     const QString &title)
{
    const auto number = quint32(windows.size()) + 1;
    running.append({.id = id, .name = name, .isRegular = true});
    windows.append({.windowID = number,
                    .processID = qint32(1000 + number),
                    .applicationID = id,
                    .applicationName = name,
                    .title = title,
                    .frame = frame,
                    .isNormalLayer = true});
}

void InMemoryDesktop::addDisplay(quint32 id, const WindowRect &bounds)
{
    displays.append({.id = id,
                     .name = u"Display %1"_qs.arg(id),
                     .bounds = bounds,
                     .usableFrame = bounds,
                     .isMain = displays.isEmpty()});
}

Desktop InMemoryDesktop::makeDesktop()
{
    Desktop desktop{.session = "memory", .roles = {.ownID = "org.ardeno.Ardeno"}};
    addContents(*this, &desktop);
    addScreen(*this, &desktop);
    addActions(*this, &desktop);
    return desktop;
}

} // namespace ardeno::fakes
