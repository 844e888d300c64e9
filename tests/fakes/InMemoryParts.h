// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/fakes/InMemoryDesktop.h"

namespace ardeno::fakes {

// An interface of the desktop in memory.
template <typename Interface>
class InMemory : public Interface {
public:
    explicit InMemory(InMemoryDesktop &desktop) : m_desktop(desktop) {}

protected:
    InMemoryDesktop &m_desktop;
};

// One that this desktop offers, unless it says otherwise.
template <typename Interface>
class Available : public InMemory<Interface> {
public:
    using InMemory<Interface>::InMemory;

    Capability availability() const override { return Capability::available(); }
};

// Applications, and what they have open: tabs, folders and documents.
void addContents(InMemoryDesktop &memory, Desktop *desktop);
// Displays and windows, pictures and recordings of them.
void addScreen(InMemoryDesktop &memory, Desktop *desktop);
// What it does when it is asked to: opens, moves, listens to keys.
void addActions(InMemoryDesktop &memory, Desktop *desktop);

} // namespace ardeno::fakes
