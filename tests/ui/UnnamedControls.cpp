// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/UnnamedControls.h"

#include <QAccessible>
#include <QWidget>

namespace ardeno {

namespace {

bool needsName(const QAccessibleInterface &interface)
{
    switch (interface.role()) {
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::EditableText:
    case QAccessible::List:
    case QAccessible::ListItem:
    case QAccessible::Dialog:
    case QAccessible::AlertMessage:
    case QAccessible::Table:
    case QAccessible::Cell:
        return true;
    default:
        return interface.state().focusable;
    }
}

QString describe(const QAccessibleInterface &interface)
{
    const QObject *const object = interface.object();
    return QString("%1 in %2")
        .arg(static_cast<int>(interface.role()))
        .arg(object ? object->metaObject()->className() : "a view");
}

void collect(QAccessibleInterface *interface, ReadScreen *screen)
{
    if (!interface || interface->state().invisible)
        return;
    const QString name = interface->text(QAccessible::Name);
    if (needsName(*interface) && name.trimmed().isEmpty())
        screen->unnamed.append(describe(*interface));
    screen->names.insert(name);
    for (int i = 0; i < interface->childCount(); ++i)
        collect(interface->child(i), screen);
}

} // namespace

ReadScreen readScreen(QWidget *window)
{
    ReadScreen screen;
    collect(QAccessible::queryAccessibleInterface(window), &screen);
    return screen;
}

} // namespace ardeno
