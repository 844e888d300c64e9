// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/Edid.h"

namespace ardeno {

QString Edid::modelName(const QByteArray &edid)
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
        return QString::fromLatin1(text.left(text.indexOf('\n'))).trimmed();
    }
    return {};
}

} // namespace ardeno
