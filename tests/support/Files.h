// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <doctest/doctest.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace ardeno {

// Makes a file with these bytes, and the folder that it stands in.
inline void writeFile(const QString &path, const QByteArray &bytes = {})
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    REQUIRE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

// Empty where there is none.
inline QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace ardeno
