// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <doctest/doctest.h>

#include <QList>
#include <QString>
#include <QUuid>

// How test reports show Qt's values.
namespace doctest {

template <>
struct StringMaker<QString> {
    static String convert(const QString &text) { return text.toUtf8().constData(); }
};

template <>
struct StringMaker<QByteArray> {
    static String convert(const QByteArray &bytes) { return bytes.constData(); }
};

template <>
struct StringMaker<QUuid> {
    static String convert(const QUuid &id) { return id.toByteArray().constData(); }
};

template <typename T>
struct StringMaker<QList<T>> {
    static String convert(const QList<T> &list)
    {
        String text = "[";
        for (const T &element : list)
            text += StringMaker<T>::convert(element) + ", ";
        return text + "]";
    }
};

} // namespace doctest
