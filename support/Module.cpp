// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Module.h"

#include "support/Failure.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

namespace ardeno {

namespace {

// Where the modules of this program are: never where a user or another program could put one.
QString pathOf(const QString &module)
{
    const QString program = QCoreApplication::applicationDirPath();
    for (const char *folder : {"/", "/../lib/ardeno/"}) {
        QString path = program + folder + module + ".so";
        if (QFileInfo::exists(path))
            return path;
    }
    throw Failure("Module", 1, u"A part of this program is not installed (%1)."_qs.arg(module));
}

} // namespace

QFunctionPointer Module::function(const QString &module, const char *name)
{
    QLibrary library(pathOf(module));
    const QFunctionPointer found = library.resolve(name);
    if (!found)
        throw Failure("Module", 2, u"A part of this program cannot be used: %1"_qs.arg(library.errorString()));
    return found;
}

} // namespace ardeno
