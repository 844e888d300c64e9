// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

namespace ardeno {

// The names by which desktop files, windows and processes speak of the same application, all in lower case. None is
// empty.
namespace ApplicationNames {

// In one letter case and without ".desktop"; empty for what is no name (a path).
QString folded(const QString &name);

// The name itself, and the last part of a reverse-DNS name ("org.keepassxc.KeePassXC" → "keepassxc") or of a package's
// application ("firefox_firefox").
QSet<QString> ofApplication(const QString &id);

// The same of a window's class or instance, and the class of a Java program ("org-gjt-sp-jedit-jEdit" → "jedit").
QSet<QString> ofWindow(const QString &name);

// With whatever else may be the application's name in it: the last word ("debian-xterm" → "xterm"), and what stands
// before a version ("gimp-2.10" → "gimp").
QSet<QString> imaginable(const QString &name);

// Whether this program (a name or a path) runs those of others, so that its own name says nothing.
bool runsOthers(const QString &program);

// Of the program, or of what it is told to run.
QSet<QString> ofCommand(const QString &program, const QStringList &arguments);

} // namespace ApplicationNames

} // namespace ardeno
