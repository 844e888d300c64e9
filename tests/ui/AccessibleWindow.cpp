// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/AccessibleWindow.h"

#include <atspi/atspi.h>

namespace ardeno {

namespace {

template <typename Object>
struct Unref {
    void operator()(Object *object) const { g_object_unref(object); }
};

template <typename Object>
using Owned = std::unique_ptr<Object, Unref<Object>>;

QString nameOf(AtspiAccessible *thing)
{
    gchar *const name = atspi_accessible_get_name(thing, nullptr);
    const QString text = QString::fromUtf8(name);
    g_free(name);
    return text;
}

bool hasStates(AtspiAccessible *thing, std::initializer_list<AtspiStateType> wanted)
{
    const Owned<AtspiStateSet> states(atspi_accessible_get_state_set(thing));
    for (const AtspiStateType state : wanted) {
        if (!states || !atspi_state_set_contains(states.get(), state))
            return false;
    }
    return true;
}

using Match = std::function<bool(AtspiAccessible *)>;

// The first thing below, or itself, that matches.
Owned<AtspiAccessible> search(AtspiAccessible *below, const Match &isWanted)
{
    if (isWanted(below))
        return Owned<AtspiAccessible>(static_cast<AtspiAccessible *>(g_object_ref(below)));
    const int count = atspi_accessible_get_child_count(below, nullptr);
    for (int i = 0; i < count; ++i) {
        const Owned<AtspiAccessible> child(atspi_accessible_get_child_at_index(below, i, nullptr));
        if (!child)
            continue;
        if (Owned<AtspiAccessible> found = search(child.get(), isWanted))
            return found;
    }
    return nullptr;
}

} // namespace

struct AccessibleWindow::Application {
    Owned<AtspiAccessible> root = nullptr;

    Owned<AtspiAccessible> find(const QString &name, std::initializer_list<AtspiStateType> states) const
    {
        if (!root)
            return nullptr;
        return search(root.get(),
                      [&](AtspiAccessible *thing) { return nameOf(thing) == name && hasStates(thing, states); });
    }
};

AccessibleWindow::AccessibleWindow(qint64 process) : m_application(std::make_unique<Application>())
{
    atspi_init();
    const Owned<AtspiAccessible> desktop(atspi_get_desktop(0));
    atspi_accessible_clear_cache(desktop.get());
    const int count = atspi_accessible_get_child_count(desktop.get(), nullptr);
    for (int i = 0; i < count && !m_application->root; ++i) {
        Owned<AtspiAccessible> program(atspi_accessible_get_child_at_index(desktop.get(), i, nullptr));
        if (program && atspi_accessible_get_process_id(program.get(), nullptr) == process)
            m_application->root = std::move(program);
    }
    if (m_application->root)
        atspi_accessible_clear_cache(m_application->root.get());
}

AccessibleWindow::~AccessibleWindow() = default;

bool AccessibleWindow::has(const QString &name) const
{
    return m_application->find(name, {ATSPI_STATE_SHOWING}) != nullptr;
}

bool AccessibleWindow::press(const QString &name) const
{
    const auto found = m_application->find(name, {ATSPI_STATE_SHOWING, ATSPI_STATE_ENABLED, ATSPI_STATE_FOCUSABLE});
    const Owned<AtspiAction> action(found ? atspi_accessible_get_action_iface(found.get()) : nullptr);
    return action && atspi_action_do_action(action.get(), 0, nullptr);
}

bool AccessibleWindow::focus(const QString &name) const
{
    const auto found = m_application->find(name, {ATSPI_STATE_SHOWING, ATSPI_STATE_FOCUSABLE});
    const Owned<AtspiComponent> component(found ? atspi_accessible_get_component_iface(found.get()) : nullptr);
    return component && atspi_component_grab_focus(component.get(), nullptr);
}

} // namespace ardeno
