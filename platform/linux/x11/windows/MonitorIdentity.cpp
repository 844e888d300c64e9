// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/MonitorIdentity.h"

#include <QHash>

namespace ardeno {

namespace {

// The 32-bit FNV-1a hash: the same in every run and on every machine.
quint32 stableHash(const QByteArray &bytes)
{
    quint32 hash = 2166136261U;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<quint8>(byte)) * 16777619U;
    return hash;
}

// Empty when the block is damaged or names no model.
QString modelName(const QByteArray &edid)
{
    constexpr qsizetype blockLength = 128;
    constexpr qsizetype firstDescriptor = 54;
    constexpr qsizetype descriptorLength = 18;
    constexpr qsizetype textOffset = 5;
    if (edid.size() < blockLength || !edid.startsWith(QByteArray("\x00\xff\xff\xff\xff\xff\xff\x00", 8)))
        return {};
    for (qsizetype at = firstDescriptor; at + descriptorLength < blockLength; at += descriptorLength) {
        if (edid.mid(at, 4) != QByteArray("\x00\x00\x00\xfc", 4))
            continue;
        const QByteArray text = edid.mid(at + textOffset, descriptorLength - textOffset);
        return QString::fromLatin1(text.split('\n').first().split('\0').first()).trimmed();
    }
    return {};
}

} // namespace

QString MonitorIdentity::displayedName() const
{
    const QString model = modelName(edid);
    return model.isEmpty() ? QString::fromUtf8(name) : model;
}

QList<quint32> MonitorIdentity::stableNumbers(const QList<MonitorIdentity> &monitors)
{
    QHash<QByteArray, int> uses;
    for (const MonitorIdentity &monitor : monitors)
        ++uses[monitor.edid];
    QList<quint32> numbers;
    for (const MonitorIdentity &monitor : monitors) {
        const bool needsName = monitor.edid.isEmpty() || uses.value(monitor.edid) > 1;
        quint32 number = stableHash(needsName ? monitor.edid + monitor.name : monitor.edid);
        while (numbers.contains(number))
            ++number;
        numbers.append(number);
    }
    return numbers;
}

} // namespace ardeno
